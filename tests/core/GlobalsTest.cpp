#include "core/Globals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/DisplayText.h"
#include "core/ExtensionFilter.h"
#include "core/NumberFormat.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

TEST(Globals, NameHelpers) {
    const struct {
        const char *name, *bodyAndExtn, *extractExtn;  // extn starts as "keep"
        bool dotted;
    } cases[] = {// clang-format off
        {".hidden", "|hidden", "hidden", true}, {"noextension", "noextension|keep", "", false},
        {"foo.", "foo|", "", false}};
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
        std::size_t slot;  // 0: defaults; a group's text, its switch or the group count
        const char* value;
        bool accepted;
    } cases[] = {
        // clang-format off
        {"a.b.JPG", 0, "", true}, {"jpg", 0, "", true}, {"TIFF", 0, "", true},
        {"foo.", 0, "", false}, {"foo.txt", 0, "", false}, {"", 0, "", false},
        {"foo.", pref::SGroup(2), "JPEG:jpg;;", false}, {"a.pic", pref::SGroup(1), "PICT", false},
        {"a.pic", pref::SGroup(1), "PICT:pic:xyz", true}, {"a.xyz", pref::SGroup(1), "PICT:pic:xyz", false},
        {"x.psd", pref::GroupSwitch(5), "2", false}, {"x.jpg", pref::kGroupCount, "2", true},
        {"x.gif", pref::kGroupCount, "2", false}, {"x.jpg", pref::kGroupCount, "-5", false},
        {"x.tif", pref::kGroupCount, "1000000", true},
        {"x.\xC3\x89", pref::SGroup(1), "PICT:\xC3\xA9", false},  // only ASCII letters fold
        // clang-format on
    };
    for (const auto& c : cases) {
        Settings s;
        s.InitAll();
        if (c.slot >= pref::kGroupCount) s.gPref[c.slot] = std::stoll(c.value);
        if (c.slot > 0 && c.slot < pref::kGroupCount) s.gPrefS[c.slot] = c.value;
        EXPECT_EQ(gChkGx(s, "JPEG", c.name), c.accepted) << c.name << " " << c.value;
    }
    // The scan workers' filter is a copy, blind to later changes.
    Settings s;
    s.InitAll();
    const ExtensionFilter filter(s);
    s.gPref[pref::GroupSwitch(2)] = 0;  // JPEG group off after the copy was taken
    EXPECT_TRUE(filter.Accepts("a.JPG"));
}

// The masks of the report's common lines are tested with the report; these are the rest.
TEST(NumberFormat, MasksUsedByTheProgramAndTheDefaultForm) {
    const double inf = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        const char *mask, *expect;
    } cases[] = {
        // clang-format off
        {4, "###.0", "4.0"}, {2.97, "###.0#", "2.97"}, {3, "###.0#", "3.0"}, {-0.001, "-###.00", "0.00"},
        {1234567.0, "#####", "1234567"}, {12.5, "#####", "13"}, {-5, "#####", "-5"},
        {1.0 / 3, "#####.####", "0.3333"}, {7, "0000", "0007"}, {-inf, "###.0", "-INF"},
        {std::nan(""), "##", "NAN"},
        // clang-format on
    };
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.value, c.mask), c.expect) << c.value << " " << c.mask;
    // 309 digits and ".00"
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "-###.00").size(), 312u);
    // The form without a mask.
    EXPECT_EQ(DefaultText(-0.0) + " " + DefaultText(1e300) + " " + DefaultText(4294967295.0),
              "0 1e+300 4294967295");
    EXPECT_EQ(std::stod(DefaultText(35.658166666666666)), 35.658166666666666);
}

// Plain Latin-1 text is tested with the report; these are the sequences UTF-8 forbids.
TEST(DisplayText, Utf8OrLatin1) {
    EXPECT_TRUE(IsValidUtf8("日本 caf\xc3\xa9"));
    // overlong, surrogate, cut short
    for (const char* bad : {"\xc0\xaf", "\xed\xa0\x80", "\xe6\x97"})
        EXPECT_EQ(DisplayText(bad), Latin1ToUtf8(bad)) << bad;
    EXPECT_EQ(DisplayText(std::string("01\0\0", 4)), "01");
}

}  // namespace
}  // namespace lumivex
