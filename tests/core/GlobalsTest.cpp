#include "core/Globals.h"

#include <gtest/gtest.h>

#include "core/ExtensionFilter.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

TEST(Globals, NameHelpers) {
    struct Case {
        const char *name, *body, *extn, *extractExtn;  // extn starts as "keep"
        bool dotted;
    };
    const Case cases[] = {{"a.b.JPG", "a.b", "JPG", "JPG", false},
                          {".hidden", "", "hidden", "hidden", true},
                          {"noextension", "noextension", "keep", "", false},
                          {"foo.", "foo", "", "", false},
                          {"", "", "keep", "", false}};
    for (const Case& c : cases) {
        std::string body = "old", extn = "keep";
        gExtractBodyAndExtn(c.name, body, extn);
        EXPECT_EQ(body + "|" + extn, std::string(c.body) + "|" + c.extn) << c.name;
        EXPECT_EQ(gExtractExtn(c.name), c.extractExtn) << c.name;
        EXPECT_EQ(gDottedFI(c.name), c.dotted) << c.name;
    }
}

TEST(Globals, ExtensionTest) {
    struct Case {
        const char* name;
        int prefSlot;  // -1: none changed
        std::int64_t prefValue;
        int strSlot;  // -1: none changed
        const char* strValue;
        bool accepted;
    };
    // clang-format off
    const Case cases[] = {
        {"a.b.JPG", -1, 0, -1, "", true},         {"IMG_0001.jpeg", -1, 0, -1, "", true},
        {"jpg", -1, 0, -1, "", true},             {"TIFF", -1, 0, -1, "", true},
        {"foo.", -1, 0, -1, "", false},           {"foo.txt", -1, 0, -1, "", false},
        {"jpg.", -1, 0, -1, "", false},           {"", -1, 0, -1, "", false},
        {"foo.", -1, 0, 2, "JPEG:jpg;;", false},  {"a.jpg", -1, 0, 2, "JPEG:jpg;;", true},
        {"pict", -1, 0, 1, "PICT", false},        {"a.pic", -1, 0, 1, "PICT", false},
        {"a.pic", -1, 0, 1, "PICT:pic:xyz", true}, {"a.xyz", -1, 0, 1, "PICT:pic:xyz", false},
        {"x.psd", 25, 0, -1, "", false},          {"x.psd", 25, 2, -1, "", false},
        {"x.jpg", 20, 2, -1, "", true},           {"x.gif", 20, 2, -1, "", false},
        {"x.jpg", 20, -5, -1, "", false},         {"x.tif", 20, 1'000'000, -1, "", true},
    };
    // clang-format on
    for (const Case& c : cases) {
        Settings s;
        s.InitAll();
        if (c.prefSlot >= 0) s.gPref[std::size_t(c.prefSlot)] = c.prefValue;
        if (c.strSlot >= 0) s.gPrefS[std::size_t(c.strSlot)] = c.strValue;
        EXPECT_EQ(gChkGxExt(s, c.name), c.accepted) << c.name << " " << c.strValue;
        EXPECT_EQ(gChkGx(s, "JPEG", c.name), c.accepted) << c.name << " " << c.strValue;
    }
}

TEST(Globals, ScanWorkerFilterIsACopy) {
    Settings s;
    s.InitAll();
    const ExtensionFilter filter(s);
    s.gPref[22] = 0;  // JPEG group off after the copy was taken
    EXPECT_TRUE(filter.Accepts("a.JPG"));
    EXPECT_FALSE(gChkGxExt(s, "a.JPG"));
    EXPECT_FALSE(ExtensionFilter().Accepts("a.jpg"));
}

TEST(Globals, BinaryValues) {
    EXPECT_EQ(gBinToInt(""), 0u);
    EXPECT_EQ(gBinToInt(std::string("\x01\x02", 2)), 0x0102u);
    EXPECT_EQ(gBinToInt("\xFF\xFF\xFF\xFF"), 0xFFFFFFFFu);
    EXPECT_EQ(gBinToInt(std::string("\x01\0\0\0\0\0\0\0\x02", 9)), 2u);  // wraps
    struct Case {
        std::uint64_t value;
        unsigned start, length;
        std::uint64_t expected;
    };
    // clang-format off
    const Case cases[] = {{0b101100, 2, 3, 0b011}, {0xF0, 4, 4, 0xF}, {0xF0, 0, 4, 0},
                          {~0ull, 0, 64, ~0ull}, {~0ull, 60, 10, 0xF}, {~0ull, 64, 1, 0},
                          {0x8000000000000000, 63, 1, 1}, {0x1234, 3, 0, 0}};
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(gBitR(c.value, c.start, c.length), c.expected) << c.start << "," << c.length;
}

TEST(Globals, ColoursAndCaseFolding) {
    for (const Color c : {Color{0, 0, 0}, Color{1, 2, 3}, Color{255, 255, 255}})
        EXPECT_EQ(gClrItoC(gClrCtoI(c)), c);
    EXPECT_EQ(gClrCtoI(Color{0x12, 0x34, 0x56}), 0x123456);
    EXPECT_EQ(gClrItoC(0x7F123456), (Color{0x12, 0x34, 0x56}));
    EXPECT_EQ(gClrItoC(-1), (Color{255, 255, 255}));
    EXPECT_TRUE(gHoldsNoCase("<key>cfbundleIDENTIFIER</key>", "CFBundleIdentifier"));
    EXPECT_FALSE(gEqualNoCase("\xC3\xA9", "\xC3\x89"));  // only ASCII letters fold
}

}  // namespace
}  // namespace lumivex
