#include "core/Globals.h"

#include <gtest/gtest.h>

#include "core/ExtensionFilter.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

TEST(Globals, NameHelpers) {
    const struct {
        const char *name, *bodyAndExtn, *extractExtn;  // extn starts as "keep"
        bool dotted;
    } cases[] = {// clang-format off
        {"a.b.JPG", "a.b|JPG", "JPG", false}, {".hidden", "|hidden", "hidden", true},
        {"noextension", "noextension|keep", "", false}, {"foo.", "foo|", "", false},
        {"", "|keep", "", false}};
    // clang-format on
    for (const auto& c : cases) {
        std::string body = "old", extn = "keep";
        gExtractBodyAndExtn(c.name, body, extn);
        EXPECT_EQ(body + "|" + extn, c.bodyAndExtn) << c.name;
        EXPECT_EQ(gExtractExtn(c.name), c.extractExtn) << c.name;
        EXPECT_EQ(gDottedFI(c.name), c.dotted) << c.name;
    }
}

TEST(Globals, ExtensionTest) {
    const struct {
        const char* name;
        std::size_t slot;  // 0: defaults; below 20 a string slot, else a number slot
        const char* value;
        bool accepted;
    } cases[] = {
        // clang-format off
        {"a.b.JPG", 0, "", true}, {"IMG_0001.jpeg", 0, "", true}, {"jpg", 0, "", true},
        {"TIFF", 0, "", true}, {"foo.", 0, "", false}, {"foo.txt", 0, "", false},
        {"jpg.", 0, "", false}, {"", 0, "", false}, {"foo.", 2, "JPEG:jpg;;", false},
        {"a.jpg", 2, "JPEG:jpg;;", true}, {"pict", 1, "PICT", false}, {"a.pic", 1, "PICT", false},
        {"a.pic", 1, "PICT:pic:xyz", true}, {"a.xyz", 1, "PICT:pic:xyz", false},
        {"x.psd", 25, "0", false}, {"x.psd", 25, "2", false}, {"x.jpg", 20, "2", true},
        {"x.gif", 20, "2", false}, {"x.jpg", 20, "-5", false}, {"x.tif", 20, "1000000", true},
        // clang-format on
    };
    for (const auto& c : cases) {
        Settings s;
        s.InitAll();
        if (c.slot >= 20) s.gPref[c.slot] = std::stoll(c.value);
        if (c.slot > 0 && c.slot < 20) s.gPrefS[c.slot] = c.value;
        EXPECT_EQ(gChkGxExt(s, c.name), c.accepted) << c.name << " " << c.value;
        EXPECT_EQ(gChkGx(s, "JPEG", c.name), c.accepted) << c.name << " " << c.value;
    }
    // The scan workers' filter is a copy, blind to later changes.
    Settings s;
    s.InitAll();
    const ExtensionFilter filter(s);
    s.gPref[22] = 0;  // JPEG group off after the copy was taken
    EXPECT_TRUE(filter.Accepts("a.JPG"));
    EXPECT_FALSE(gChkGxExt(s, "a.JPG"));
    EXPECT_FALSE(ExtensionFilter().Accepts("a.jpg"));
}

TEST(Globals, BinaryValuesColoursAndCase) {
    EXPECT_EQ(gBinToInt(""), 0u);
    EXPECT_EQ(gBinToInt(std::string("\x01\x02", 2)), 0x0102u);
    EXPECT_EQ(gBinToInt("\xFF\xFF\xFF\xFF"), 0xFFFFFFFFu);
    EXPECT_EQ(gBinToInt(std::string("\x01\0\0\0\0\0\0\0\x02", 9)), 2u);  // wraps
    const struct {
        std::uint64_t value;
        unsigned start, length;
        std::uint64_t expected;
    } bits[] = {{0b101100, 2, 3, 0b011},        {0xF0, 4, 4, 0xF},    {0xF0, 0, 4, 0},
                {~0ull, 0, 64, ~0ull},          {~0ull, 60, 10, 0xF}, {~0ull, 64, 1, 0},
                {0x8000000000000000, 63, 1, 1}, {0x1234, 3, 0, 0}};
    for (const auto& c : bits)
        EXPECT_EQ(gBitR(c.value, c.start, c.length), c.expected) << c.start << "," << c.length;
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
