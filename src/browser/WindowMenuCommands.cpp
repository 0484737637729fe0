#include "browser/WindowMenuCommands.h"

#include <QApplication>
#include <QGuiApplication>

#include "browser/ExifInfoGPS.h"
#include "browser/MainWindow.h"
#include "browser/ThumbnailCommands.h"
#include "browser/WindowFrame.h"
#include "core/Settings.h"
#include "model/CommandState.h"
#include "model/PrefValues.h"
#include "prefs/AboutPanel.h"
#include "prefs/HelpLinks.h"
#include "prefs/PrefDlg.h"
#include "shell/MainMenuBar.h"
#include "shell/MainToolBar.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

constexpr int kPrefsTag = 609;
constexpr int kReloadTag = 610;

// The Exif information takes copy and select-all while it is the window in front.
ExifInfoGPS* ExifInFront() {
    return qobject_cast<ExifInfoGPS*>(QApplication::activeWindow());
}

}  // namespace

WindowMenuCommands::WindowMenuCommands(MainWindow& window, Settings& prefs, Prompter& prompter,
                                       MainToolBar& toolbar, std::filesystem::path settingsFolder)
    : pWindow(window),
      pPrefs(prefs),
      pPrompter(prompter),
      pToolBar(toolbar),
      pFolder(std::move(settingsFolder)) {}

void WindowMenuCommands::Install() {
    pMenuBar = new MainMenuBar(*this, &pWindow);
    pWindow.setMenuBar(pMenuBar);
    pMenuBar->SetViewAppearTitle(pToolBar.GetToolbarVisible());
    QObject::connect(&pToolBar, &MainToolBar::ToolbarVisibilityChanged, pMenuBar,
                     &MainMenuBar::SetViewAppearTitle);
    QObject::connect(&pToolBar, &MainToolBar::ToolbarItemClicked, pMenuBar,
                     [this](int tag) { ToolbarItemClicked(tag); });
    QObject::connect(&pToolBar, &MainToolBar::ExportModeChosen, pMenuBar,
                     [this](int mode) { pWindow.ExportThumbNail(mode); });
    pWindow.Frame().SetMinimizeMark(
        [this](bool minimised) { pMenuBar->gSetMenuOnStateImage(minimised); });
}

void WindowMenuCommands::ToolbarItemClicked(int tag) {
    switch (tag) {
        case CommandState::kExportAll:
            return pWindow.ExportThumbNailAll();
        case CommandState::kRotateLeft:
            return _ThmbL_Action();
        case CommandState::kRotateRight:
            return _ThmbR_Action();
        case CommandState::kExifInfo:
            return pWindow.SelFileExifGPS(pWindow.Selection().pCidx);
        case CommandState::kGoogleEarth:
            return pWindow.LaunchGEarth();
        case kPrefsTag:
            return _EditPref_Action();
        case kReloadTag:
            return _ViewReload_Action();
        default:
            return;
    }
}

MenuState WindowMenuCommands::MenuStateNow() const {
    MenuState state = MainMenuBar::ToolbarState(pToolBar);
    state.pCidxFlg = pWindow.Selection().pCidxFlg;
    state.editTargetInFront = ExifInFront() != nullptr;
    state.resetAllowed = pWindow.Frame().ResetWinGeoAllowed();
    return state;
}

void WindowMenuCommands::_FileExportExif_Action() {
    pWindow.ExportThumbNail(0);
}

void WindowMenuCommands::_FileExportJpeg_Action() {
    pWindow.ExportThumbNail(1);
}

void WindowMenuCommands::_FileExportSaveAs_Action() {
    pWindow.ExportThumbNail(2);
}

void WindowMenuCommands::_FileExportJpegAll_Action() {
    pWindow.ExportThumbNailAll();
}

// The same road as the close button: settings saved, card ejected, scratch folder removed.
void WindowMenuCommands::_FileQuit_Action() {
    pWindow.close();
}

void WindowMenuCommands::_EditCopy_Action() {
    if (ExifInfoGPS* info = ExifInFront())
        info->CopyString();
    else
        pWindow.GenClipboard();
}

void WindowMenuCommands::_EditSelectAll_Action() {
    if (ExifInfoGPS* info = ExifInFront())
        info->SelectAllList();
    else
        pWindow.SelectAll();
}

void WindowMenuCommands::_EditPref_Action() {
    PrefDlg::Context context{.prefs = pPrefs,
                             .settingsFolder = pFolder,
                             .prompter = pPrompter,
                             .locator = GoogleEarthLocator::System(),
                             .altHeld = PrefDlg::AltHeld(),
                             .googleEarthIcon = {}};
    const PrefChanges changes = PrefDlg::ShowPrefDlg(std::move(context), &pWindow);
    if (changes.Any()) ResetPrefs(changes);
}

void WindowMenuCommands::ResetPrefs(const PrefChanges& changes) {
    pWindow.ApplyDisplayPrefs();
    if (changes.Changed(pref::kGoogleEarthAllowed) || changes.googleEarthApp) RefreshGoogleEarth();
    if (changes.RebuildTree()) pWindow.Outline()->RemakeTable(true);
}

// Only an application that is still a Google Earth puts the globe on the button.
void WindowMenuCommands::RefreshGoogleEarth() {
    if (pPrefs.gPref[pref::kGoogleEarthAllowed] != 1) return;
    const std::string& app = pPrefs.gPrefS[pref::kSGoogleEarthApp];
    if (!app.empty() && pWindow.Thumbs().Earth().GetGoogleEarthChk(app) > 0)
        pToolBar.SetGoogleEarthFound();
    pWindow.SetBtnStat(pWindow.Selection().pCidxFlg);
}

void WindowMenuCommands::_ViewReload_Action() {
    pWindow.Outline()->RemakeTable(false);
}

void WindowMenuCommands::_ViewAppear_Action() {
    pToolBar.ToggleToolbarShown();
}

void WindowMenuCommands::_ViewCustomize_Action() {
    pToolBar.RunCustomizationDialog(&pWindow);
}

void WindowMenuCommands::_ThmbL_Action() {
    if (pWindow.Selection().pCidxFlg > 0) pWindow.RotateImageL();
}

void WindowMenuCommands::_ThmbR_Action() {
    if (pWindow.Selection().pCidxFlg > 0) pWindow.RotateImageR();
}

void WindowMenuCommands::_WinCollapse_Action() {
    pWindow.showMinimized();
}

void WindowMenuCommands::_WinZoom_Action() {
    if (pWindow.isMaximized())
        pWindow.showNormal();
    else
        pWindow.showMaximized();
}

void WindowMenuCommands::_WinReset_Action() {
    pWindow.Frame().ResetWinGeo();
}

void WindowMenuCommands::_WinBringAllFront_Action() {
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->isVisible()) top->raise();
    pWindow.raise();
}

void WindowMenuCommands::_WinWindow1_Action() {
    if (pWindow.isMinimized()) pWindow.showNormal();
    pWindow.raise();
    pWindow.activateWindow();
}

void WindowMenuCommands::_HelpHome_Action() {
    HelpLinks::System(pPrompter).ConnectHP(&pWindow, pPrefs.gPref[pref::kBeepOnCaution] == 1);
}

void WindowMenuCommands::_HelpReadme_Action() {
    HelpLinks::System(pPrompter)._HelpReadme_Action(&pWindow);
}

void WindowMenuCommands::_HelpHelpbook_Action() {
    HelpLinks::System(pPrompter)._HelpHelpbook_Action(&pWindow);
}

void WindowMenuCommands::_AppleAbout_Action() {
    AboutPanel::GenAboutPanel(&pWindow);
}

}  // namespace lumivex
