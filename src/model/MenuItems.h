#pragma once
// The menu bar's table: the menus in order, each item with its name, title, shortcut and
// whether it is enabled by default (a handler exists) or only when a rule says so. The three
// items that another desktop would keep in an application menu stand where Linux programs
// keep them: preferences at the end of 編集, about at the end of ヘルプ, quit at the end of
// ファイル, each after a separator. Qt-free.
#include <vector>

namespace lumivex {

enum class MenuItem {
    Separator,
    FileExportExif,
    FileExportJpeg,
    FileExportSaveAs,
    FileExportJpegAll,
    FileQuit,
    EditUndo,
    EditRedo,
    EditCut,
    EditCopy,
    EditCopy2,
    EditPaste,
    EditClear,
    EditSelectAll,
    EditPref,
    ViewReload,
    ViewAppear,
    ViewCustomize,
    ThmbL,
    ThmbR,
    WinCollapse,
    WinZoom,
    WinReset,
    WinBringAllFront,
    WinWindow1,
    HelpHome,
    HelpReadme,
    HelpHelpbook,
    AppleAbout,
};

struct MenuItemRow {
    MenuItem item;
    const char* name;   // the item's name, also the QAction's object name
    const char* title;  // empty for a separator
    const char* shortcut;
    bool autoEnable;
};

struct MenuRow {
    const char* name;
    const char* title;
    std::vector<MenuItemRow> items;
};

class MenuItems {
  public:
    static const std::vector<MenuRow>& Table();
    static const MenuItemRow* Find(MenuItem item);
};

}  // namespace lumivex
