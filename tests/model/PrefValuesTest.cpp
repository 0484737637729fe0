// The values the preferences dialog edits: which setting each one writes, what a save reports
// as changed, the speed's tenths, and the page rules.
#include <gtest/gtest.h>

#include <functional>

#include "model/PrefPages.h"
#include "model/PrefValues.h"

namespace lumivex {
namespace {

Settings Defaults() {
    Settings s;
    s.InitAll();
    return s;
}

TEST(PrefValuesTest, EachValueWritesItsOwnSlotAndOnlyThat) {
    struct Case {
        const char* what;
        std::function<void(PrefValues&)> edit;
        std::size_t slot;
        std::int64_t stored;
    };
    const Case cases[] = {
        {"list back", [](PrefValues& v) { v.listBack = 0x123456; }, pref::kListBackColor, 0x123456},
        {"thumb back", [](PrefValues& v) { v.thumbBack = 0x010203; }, pref::kThumbBackColor,
         0x010203},
        {"selection", [](PrefValues& v) { v.selection = 0xABCDEF; }, pref::kSelectionColor,
         0xABCDEF},
        {"folder name", [](PrefValues& v) { v.folderName = 0x0F0F0F; }, pref::kFolderNameColor,
         0x0F0F0F},
        {"folder names", [](PrefValues& v) { v.colorFolderNames = false; }, pref::kColorFolderNames,
         0},
        {"orientation", [](PrefValues& v) { v.followOrientation = false; },
         pref::kFollowOrientation, 0},
        {"no thumb", [](PrefValues& v) { v.listNoThumb = true; }, pref::kListNoThumb, 1},
        {"extension", [](PrefValues& v) { v.showExtension = true; }, pref::kShowExtension, 1},
        {"detect", [](PrefValues& v) { v.detectCamera = true; }, pref::kDetectCamera, 1},
        {"eject", [](PrefValues& v) { v.ejectAtQuit = true; }, pref::kEjectAtQuit, 1},
        {"earth allowed", [](PrefValues& v) { v.googleEarthAllowed = false; },
         pref::kGoogleEarthAllowed, 0},
        {"range", [](PrefValues& v) { v.range = "1500.9"; }, pref::kGoogleEarthRange, 1500},
        {"tilt", [](PrefValues& v) { v.tilt = "45"; }, pref::kGoogleEarthTilt, 45},
        {"heading", [](PrefValues& v) { v.heading = "-90"; }, pref::kGoogleEarthHeading, -90},
        {"speed", [](PrefValues& v) { v.speed = "0.3"; }, pref::kGoogleEarthSpeed, 3},
        {"volumes", [](PrefValues& v) { v.volumeMode = 2; }, pref::kVolumeMode, 2},
        {"beep", [](PrefValues& v) { v.beep = false; }, pref::kBeepOnCaution, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Settings s = Defaults();
        const Settings before = s;
        PrefValues v = PrefValues::From(s, false);
        c.edit(v);
        const PrefChanges changes = v.ApplyTo(s);
        EXPECT_EQ(s.gPref[c.slot], c.stored);
        EXPECT_EQ(changes.ints.count(), 1u);
        EXPECT_TRUE(changes.Changed(c.slot));
        EXPECT_EQ(changes.RebuildTree(), c.slot == pref::kVolumeMode);
        for (std::size_t i = 0; i < s.gPref.size(); ++i) {
            if (i != c.slot) {
                EXPECT_EQ(s.gPref[i], before.gPref[i]) << "slot " << i;
            }
        }
        EXPECT_EQ(s.gPrefS, before.gPrefS);
    }
}

TEST(PrefValuesTest, ReadingBackChangesNothingAndThePathIsReported) {
    Settings s = Defaults();
    s.gPref[pref::kGoogleEarthSpeed] = 7;
    s.gPref[pref::kVolumeMode] = 9;  // none of the choices: shown as the first
    PrefValues v = PrefValues::From(s, false);
    EXPECT_EQ(v.speed, "0.7");
    EXPECT_EQ(v.volumeMode, 0);
    // Stored back as the choice it showed, which rebuilds the tree.
    PrefChanges c = v.ApplyTo(s);
    EXPECT_EQ(s.gPref[pref::kVolumeMode], 0);
    EXPECT_EQ(c.ints.count(), 1u);
    EXPECT_TRUE(c.RebuildTree());
    EXPECT_FALSE(PrefValues::From(s, false).ApplyTo(s).Any());

    v = PrefValues::From(s, false);
    v.googleEarthApp = "/opt/google/earth/pro/google-earth-pro";
    c = v.ApplyTo(s);
    EXPECT_TRUE(c.googleEarthApp);
    EXPECT_TRUE(c.ints.none());
    EXPECT_EQ(s.gPrefS[pref::kSGoogleEarthApp], v.googleEarthApp);
}

TEST(PrefValuesTest, KeepExpertIsWrittenOnlyWhenItsPageIsOffered) {
    struct Case {
        bool alt;
        std::int64_t kept;
        bool offered;
        std::int64_t afterTurningOn;
    };
    const Case cases[] = {{false, 0, false, 0}, {true, 0, true, 1}, {false, 1, true, 1}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "alt " << c.alt << " kept " << c.kept);
        Settings s = Defaults();
        s.gPref[pref::kKeepExpert] = c.kept;
        PrefValues v = PrefValues::From(s, c.alt);
        EXPECT_EQ(v.expert, c.offered);
        EXPECT_EQ(v.keepExpert, c.kept == 1);
        v.keepExpert = true;
        v.ApplyTo(s);
        EXPECT_EQ(s.gPref[pref::kKeepExpert], c.afterTurningOn);
    }
}

TEST(PrefValuesTest, SpeedIsShownInUnitsAndStoredInTruncatedTenths) {
    const std::pair<std::int64_t, const char*> shown[] = {{2, "0.2"}, {3, "0.3"},  {60, "6"},
                                                          {0, "0"},   {15, "1.5"}, {-5, "-0.5"}};
    for (const auto& [tenths, text] : shown) {
        EXPECT_EQ(PrefValues::SpeedText(tenths), text);
        EXPECT_EQ(PrefValues::SpeedTenths(text), tenths) << text;
    }
    const std::pair<const char*, std::int64_t> read[] = {{"0.29", 2}, {" 1.25km", 12}, {"abc", 0},
                                                         {"", 0},     {"+7", 70},      {"99", 990}};
    for (const auto& [text, tenths] : read)
        EXPECT_EQ(PrefValues::SpeedTenths(text), tenths) << text;
}

TEST(PrefPagesTest, NamesOrderAndButtons) {
    const std::pair<const char*, int> names[] = {{"ToolItem1", 0}, {"ToolItem4", 3},
                                                 {"ToolItem6", 5}, {"ToolItem7", 0},
                                                 {"", 0},          {"toolitem2", 0}};
    for (const auto& [name, page] : names)
        EXPECT_EQ(PrefPages::GetPageNo(name), page) << name;

    const int before[] = {1, 2, 1, 4, 5, 0};
    for (int p = 0; p < PrefPages::kCount; ++p) {
        EXPECT_EQ(PrefPages::Before(p), before[p]);
        EXPECT_NE(PrefPages::Before(p), p);
    }

    struct Pushed {
        std::int64_t page;
        bool expert;
        int button;
    };
    const Pushed pushed[] = {{0, false, 0}, {4, false, 4}, {5, false, 0},
                             {5, true, 5},  {6, true, 0},  {-1, false, 0}};
    for (const Pushed& c : pushed)
        EXPECT_EQ(PrefPages::PushedButton(c.page, c.expert), c.button);

    const int heights[] = {320, 210, 170, 360, 265, 180};
    for (int p = 0; p < PrefPages::kCount; ++p)
        EXPECT_EQ(PrefPages::All()[static_cast<std::size_t>(p)].height, heights[p]);
}

}  // namespace
}  // namespace lumivex
