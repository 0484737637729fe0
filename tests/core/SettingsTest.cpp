#include "core/Settings.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumivex {
namespace {

// The colour defaults follow the colour table as it is when InitPref runs, and InitPref
// wipes whatever an earlier run or later changes left behind.
TEST(Settings, DefaultsTakeColoursFromTheTable) {
    using namespace pref;
    Settings s;
    s.InitColor();
    s.gClr[28] = Color{1, 2, 3};
    s.gClr[29] = Color{4, 5, 6};
    s.gPref[kDetectCamera] = 9;
    s.gPrefS[kSGoogleEarthApp] = "left over";
    s.InitPref(0x010101);
    EXPECT_EQ(
        (std::vector{s.gPref[kThumbBackColor], s.gPref[kSelectionColor], s.gPref[kFolderNameColor],
                     s.gPref[kListBackColor], s.gPref[kDetectCamera]}),
        (std::vector<std::int64_t>{0x010203, 0x010101, 0x0000FF, 0x040506, 0}));
    EXPECT_EQ(s.gPrefS[kSGoogleEarthApp], "");
}

}  // namespace
}  // namespace lumivex
