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
    EXPECT_FALSE(gChkGx(s, "JPEG", "a.JPG"));
}

}  // namespace
}  // namespace lumivex
