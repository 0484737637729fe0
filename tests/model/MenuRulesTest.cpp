#include <gtest/gtest.h>

#include <string>

#include "model/MenuRules.h"

namespace lumivex {
namespace {

// The items whose state depends on something, in this order, then one declared-disabled
// item without a handler and one always-on item.
constexpr MenuItem kItems[] = {
    MenuItem::FileExportExif, MenuItem::FileExportSaveAs, MenuItem::FileExportJpegAll,
    MenuItem::EditSelectAll,  MenuItem::EditCopy2,        MenuItem::ThmbL,
    MenuItem::ThmbR,          MenuItem::EditUndo,         MenuItem::FileQuit};

std::string EnabledFlags(const MenuState& state) {
    std::string flags;
    for (MenuItem item : kItems)
        flags += MenuRules::Enabled(item, state) ? '1' : '0';
    return flags;
}

TEST(MenuRulesTest, ItemsFollowTheToolbarTheSelectionAndTheWindowInFront) {
    const struct {
        bool exportMenu, exportAll;
        int selection;
        bool dialogInFront;
        const char* expected;
    } cases[] = {
        {false, false, 0, false, "000000001"},  // nothing shown, or a scan running
        {true, true, 1, false, "111111101"},
        {true, true, 2, false, "111101101"},   // several: no copy, still rotation
        {false, true, 1, false, "001111101"},  // export pop-up taken off the toolbar
        {false, false, 0, true, "000110001"},  // copy and select-all for the Exif window
    };
    for (const auto& c : cases) {
        MenuState state;
        state.exportMenuAppeared = c.exportMenu;
        state.exportAllAppeared = c.exportAll;
        state.pCidxFlg = c.selection;
        state.editTargetInFront = c.dialogInFront;
        EXPECT_EQ(EnabledFlags(state), c.expected) << c.selection << c.exportMenu;
    }
}

TEST(MenuRulesTest, HiddenItems) {
    MenuState normal;
    normal.resetAllowed = true;
    MenuState zoomed;
    EXPECT_FALSE(MenuRules::Visible(MenuItem::EditCopy, normal, true));
    EXPECT_TRUE(MenuRules::Visible(MenuItem::EditCopy2, normal, false));
    EXPECT_TRUE(MenuRules::Visible(MenuItem::WinReset, normal, true));
    EXPECT_FALSE(MenuRules::Visible(MenuItem::WinReset, normal, false));
    EXPECT_FALSE(MenuRules::Visible(MenuItem::WinReset, zoomed, true));
}

}  // namespace
}  // namespace lumivex
