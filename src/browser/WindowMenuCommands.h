#pragma once
// What the menu bar and the toolbar run: each handler forwards to the main window's own
// operations, so that a menu item, its shortcut and its toolbar button take the same road.
// It also applies again what a saved preferences dialog changed.
#include <filesystem>

#include "shell/MenuCommands.h"

namespace lumivex {

class MainMenuBar;
class MainToolBar;
class MainWindow;
class Prompter;
class Settings;
struct PrefChanges;

class WindowMenuCommands : public MenuCommands {
  public:
    // All of them outlive the object; the settings file is saved into `settingsFolder`.
    WindowMenuCommands(MainWindow& window, Settings& prefs, Prompter& prompter,
                       MainToolBar& toolbar, std::filesystem::path settingsFolder);

    // Puts the menu bar on the window and wires the toolbar and the minimise mark to both.
    void Install();
    // A toolbar item clicked (602 to 610), known by its tag.
    void ToolbarItemClicked(int tag);
    // ResetPrefs: colours, names and Google Earth again; the tree anew when asked.
    void ResetPrefs(const PrefChanges& changes);

    MenuState MenuStateNow() const override;

    void _FileExportExif_Action() override;
    void _FileExportJpeg_Action() override;
    void _FileExportSaveAs_Action() override;
    void _FileExportJpegAll_Action() override;
    void _FileQuit_Action() override;
    void _EditCopy_Action() override;
    void _EditSelectAll_Action() override;
    void _EditPref_Action() override;
    void _ViewReload_Action() override;
    void _ViewAppear_Action() override;
    void _ViewCustomize_Action() override;
    void _ThmbL_Action() override;
    void _ThmbR_Action() override;
    void _WinCollapse_Action() override;
    void _WinZoom_Action() override;
    void _WinReset_Action() override;
    void _WinBringAllFront_Action() override;
    void _WinWindow1_Action() override;
    void _HelpHome_Action() override;
    void _HelpReadme_Action() override;
    void _HelpHelpbook_Action() override;
    void _AppleAbout_Action() override;

  private:
    void RefreshGoogleEarth();

    MainWindow& pWindow;
    Settings& pPrefs;
    Prompter& pPrompter;
    MainToolBar& pToolBar;
    MainMenuBar* pMenuBar = nullptr;
    std::filesystem::path pFolder;
};

}  // namespace lumivex
