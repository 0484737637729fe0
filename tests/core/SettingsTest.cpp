#include "core/Settings.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/PrefFile.h"

namespace lumivex {
namespace {

// The colour defaults follow the colour table as it is when InitPref runs, and InitPref
// wipes whatever an earlier run or later changes left behind.
TEST(Settings, DefaultsTakeColoursFromTheTable) {
    Settings s;
    s.InitColor();
    s.gClr[28] = Color{1, 2, 3};
    s.gClr[29] = Color{4, 5, 6};
    s.gPref[77] = 9;
    s.gPrefS[33] = "left over";
    s.InitPref(0x010101);
    EXPECT_EQ((std::vector{s.gPref[4], s.gPref[5], s.gPref[6], s.gPref[8], s.gPref[77]}),
              (std::vector<std::int64_t>{0x010203, 0x010101, 0x0000FF, 0x040506, 0}));
    EXPECT_EQ(s.gPrefS[33], "");
    s.InitAll();
    EXPECT_EQ(s.gPref[4], 0xFFFFC0);
    EXPECT_EQ(s.gPref[8], 0xD7DDE5);
    // Slot 0 of each table names its last stored index: the save loops depend on it.
    EXPECT_EQ(s.gPref[0], Settings::kPrefLast);
    EXPECT_EQ(PrefFile::Val(s.gPrefS[0]), Settings::kPrefSLast);
}

}  // namespace
}  // namespace lumivex
