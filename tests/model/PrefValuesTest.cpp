// The values the preferences dialog edits: what a save reports as changed, the speed's tenths,
// and the page rules. Which setting each control writes is checked through the dialog.
#include <gtest/gtest.h>

#include "model/PrefPages.h"
#include "model/PrefValues.h"

namespace lumivex {
namespace {

TEST(PrefValuesTest, ReadingBackChangesNothingAndThePathIsReported) {
    Settings s;
    s.InitAll();
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
        Settings s;
        s.InitAll();
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

TEST(PrefPagesTest, OrderAndButtons) {
    for (int p = 0; p < PrefPages::kCount; ++p)
        EXPECT_NE(PrefPages::Before(p), p);

    struct Pushed {
        std::int64_t page;
        bool expert;
        int button;
    };
    const Pushed pushed[] = {{0, false, 0}, {4, false, 4}, {5, false, 0},
                             {5, true, 5},  {6, true, 0},  {-1, false, 0}};
    for (const Pushed& c : pushed)
        EXPECT_EQ(PrefPages::PushedButton(c.page, c.expert), c.button);
}

}  // namespace
}  // namespace lumivex
