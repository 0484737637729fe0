#include "model/MenuItems.h"

namespace lumivex {
namespace {

MenuItemRow Sep(const char* name) {
    return {MenuItem::Separator, name, "", "", true};
}

std::vector<MenuRow> MakeTable() {
    using M = MenuItem;
    return {
        {"FileMenu",
         "ファイル",
         {{M::FileExportExif, "FileExportExif", "exif形式で書き出し...", "", true},
          {M::FileExportJpeg, "FileExportJpeg", "非圧縮jpegで書き出し...", "", true},
          {M::FileExportSaveAs, "FileExportSaveAs", "形式を指定して書き出し...", "", true},
          Sep("UntitledSeparator2"),
          {M::FileExportJpegAll, "FileExportJpegAll", "全て非圧縮jpegで書き出し...", "", true},
          Sep("QuitSeparator"),
          {M::FileQuit, "FileQuit", "終了", "Ctrl+Q", true}}},
        {"EditMenu",
         "編集",
         {{M::EditUndo, "EditUndo", "取り消す", "Ctrl+Z", true},
          {M::EditRedo, "EditRedo", "やり直す", "Ctrl+Shift+Z", false},
          Sep("EditSeparator1"),
          {M::EditCut, "EditCut", "カット", "Ctrl+X", false},
          {M::EditCopy, "EditCopy", "コピー", "", false},
          {M::EditCopy2, "EditCopy2", "コピー", "Ctrl+C", false},
          {M::EditPaste, "EditPaste", "ペースト", "Ctrl+V", false},
          {M::EditClear, "EditClear", "削除", "", false},
          Sep("EditSeparator2"),
          {M::EditSelectAll, "EditSelectAll", "すべてを選択", "Ctrl+A", false},
          Sep("PrefSeparator"),
          {M::EditPref, "EditPref", "環境設定...", "", true}}},
        {"View",
         "表示",
         {{M::ViewReload, "ViewReload", "フォルダーリストを再取得", "", true},
          Sep("UntitledSeparator3"),
          {M::ViewAppear, "ViewAppear", "ツールバーを隠す", "", true},
          {M::ViewCustomize, "ViewCustomize", "ツールバーをカスタマイズ...", "", true}}},
        {"Thmb",
         "操作",
         {{M::ThmbL, "ThmbL", "サムネイルを左に回転", "Ctrl+L", false},
          {M::ThmbR, "ThmbR", "サムネイルを右に回転", "Ctrl+R", false}}},
        {"Win",
         "ウィンドウ",
         {{M::WinCollapse, "WinCollapse", "しまう", "Ctrl+M", true},
          {M::WinZoom, "WinZoom", "拡大／縮小", "", true},
          {M::WinReset, "WinReset", "位置をリセット", "", true},
          Sep("UntitledSeparator"),
          {M::WinBringAllFront, "WinBringAllFront", "すべてを手前に移動", "", true},
          Sep("UntitledSeparator0"),
          {M::WinWindow1, "WinWindow1", "Lumivex Plus", "", true}}},
        {"Help",
         "ヘルプ",
         {{M::HelpHome, "HelpHome", "ホームページに接続...", "", true},
          Sep("UntitledSeparator1"),
          {M::HelpReadme, "HelpReadme", "お読み下さい", "", true},
          {M::HelpHelpbook, "HelpHelpbook", "Lumivex ヘルプ", "", true},
          Sep("AboutSeparator"),
          {M::AppleAbout, "AppleAbout", "Lumivex Plusについて", "", true}}},
    };
}

}  // namespace

const std::vector<MenuRow>& MenuItems::Table() {
    static const std::vector<MenuRow> table = MakeTable();
    return table;
}

const MenuItemRow* MenuItems::Find(MenuItem item) {
    for (const MenuRow& menu : Table())
        for (const MenuItemRow& entry : menu.items)
            if (entry.item == item && item != MenuItem::Separator) return &entry;
    return nullptr;
}

}  // namespace lumivex
