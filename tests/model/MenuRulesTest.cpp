#include <gtest/gtest.h>

#include <string>

#include "model/MenuRules.h"

namespace lumivex {
namespace {

// What the menu bar's own tests cannot reach through the toolbar: the Exif window in front,
// the items without a handler, and the hidden items.
TEST(MenuRulesTest, TheWindowInFrontTheItemsWithoutHandlerAndTheHiddenItems) {
    MenuState dialog;
    dialog.editTargetInFront = true;
    dialog.resetAllowed = true;
    std::string flags;
    for (MenuItem item :
         {MenuItem::EditCopy2, MenuItem::EditSelectAll, MenuItem::ThmbL,
          MenuItem::FileExportJpegAll, MenuItem::EditUndo, MenuItem::EditPaste, MenuItem::FileQuit})
        flags += MenuRules::Enabled(item, dialog) ? '1' : '0';
    EXPECT_EQ(flags, "1100001");

    EXPECT_FALSE(MenuRules::Visible(MenuItem::EditCopy, dialog, true));
    EXPECT_TRUE(MenuRules::Visible(MenuItem::WinReset, dialog, true));
    EXPECT_FALSE(MenuRules::Visible(MenuItem::WinReset, dialog, false));
    EXPECT_FALSE(MenuRules::Visible(MenuItem::WinReset, MenuState{}, true));  // maximised
}

}  // namespace
}  // namespace lumivex
