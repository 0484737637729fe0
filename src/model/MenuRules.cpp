#include "model/MenuRules.h"

namespace lumivex {
namespace {

// Items listed for the desktop's sake whose commands this program does not have.
bool HasNoHandler(MenuItem item) {
    switch (item) {
        case MenuItem::EditUndo:
        case MenuItem::EditRedo:
        case MenuItem::EditCut:
        case MenuItem::EditPaste:
        case MenuItem::EditClear:
            return true;
        default:
            return false;
    }
}

}  // namespace

bool MenuRules::Enabled(MenuItem item, const MenuState& state) {
    switch (item) {
        case MenuItem::FileExportExif:
        case MenuItem::FileExportJpeg:
        case MenuItem::FileExportSaveAs:
            return state.exportMenuAppeared;
        case MenuItem::FileExportJpegAll:
            return state.exportAllAppeared;
        case MenuItem::EditSelectAll:
            return state.exportAllAppeared || state.editTargetInFront;
        case MenuItem::EditCopy:
        case MenuItem::EditCopy2:
            // A copy of several thumbnails would be ambiguous.
            return state.pCidxFlg == 1 || state.editTargetInFront;
        case MenuItem::ThmbL:
        case MenuItem::ThmbR:
            return state.pCidxFlg > 0;
        default:
            break;
    }
    const MenuItemRow* entry = MenuItems::Find(item);
    return entry && entry->autoEnable && !HasNoHandler(item);
}

bool MenuRules::Visible(MenuItem item, const MenuState& state, bool altDown) {
    if (item == MenuItem::EditCopy) return false;
    if (item == MenuItem::WinReset) return state.resetAllowed && altDown;
    return true;
}

const char* MenuRules::ViewAppearTitle(bool toolbarShown) {
    return toolbarShown ? "ツールバーを隠す" : "ツールバーを表示";
}

}  // namespace lumivex
