#pragma once
// The main window: the sidebar and the thumbnail pane side by side. It owns the scan worker,
// the scan's steps with the items and their layout, the selection, the command state, the
// thumbnail commands, the volume watcher and the progress strip; it draws and forwards, the
// model decides. The
// window is the application: closing it ends the program.
#include <QMainWindow>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "browser/CameraEject.h"
#include "browser/ScanWorker.h"
#include "model/CommandState.h"
#include "model/ItemRecord.h"
#include "model/ItemSelection.h"
#include "model/ScanController.h"

class QMenu;
class QScrollBar;
class QSplitter;

namespace lumivex {

class GridInput;
class MainToolBar;
class SidebarView;
class ThumbnailCommands;
class Prompter;
class RestingToolTip;
class ScanProgressStrip;
class Settings;
class ThumbnailCanvas;
class VolumeWatcher;
class WindowFrame;
class WindowMenuCommands;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    static constexpr int kMinWidth = 725;
    static constexpr int kMinHeight = 524;
    static constexpr int kLineStep = 10;

    // `prefs` and `prompter` outlive the window.
    MainWindow(Settings& prefs, Prompter& prompter, QWidget* parent = nullptr);
    ~MainWindow() override;

    // Where the preferences dialog saves the settings file; set before InitApp.
    void SetSettingsFolder(const std::filesystem::path& folder) { pSettingsFolder = folder; }
    // The start: toolbar and split view, position, menus, values, scroll bar.
    void InitApp();
    // The colours and the label form from the settings, painted at once.
    void ApplyDisplayPrefs();

    // Scan of a folder (the selection of a sidebar row), and the empty grid.
    void SelFolder1(const std::string& path);
    void SelFolderClr();
    void PushButton1_Action();
    bool ScanRunning() const { return pWorker.Running(); }

    // Layout: every item flowed again keeping the scroll position; the scroll range.
    void ResizeTBC();
    void InitOffScreen(bool keepScroll);

    // Selection.
    void ItemUnselect();
    void SelectAll();
    void SetBtnStat(int state);
    void SetBtnStatAll(bool enable);

    // Event_CancelClose: the frame into the settings, the worker stopped, the camera ejected
    // when the settings ask for it, then `closing`.
    void Event_CancelClose();
    // Ejects the volume on which the sidebar last found camera media (see CameraEject).
    void UnmountCam();
    void SetEjectScript(const std::filesystem::path& script) { pEject->SetScript(script); }

    // The contextual menu for the present selection, its items wired to their commands.
    QMenu* BuildContextMenu(QWidget* parent);
    bool Canvas1_ContextualMenuAction(const QString& text);

    // The thumbnail commands, for the contextual menu, the toolbar and the menu bar.
    void ExportThumbNail(int mode);
    void ExportThumbNailAll();
    void RotateImageL();
    void RotateImageR();
    bool GenClipboard();
    void SelFileExifGPS(int index);
    void LaunchGEarth();

    // What the window holds, for the program's other parts and for tests.
    const std::vector<ItemRecord>& Items() const { return pScan.Items(); }
    const ItemSelection& Selection() const { return pSelection; }
    const CommandState& Commands() const { return pCommands; }
    CommandState& Commands() { return pCommands; }
    ThumbnailCommands& Thumbs() { return *pThumbs; }
    ThumbnailCanvas* Canvas() const { return Canvas1; }
    QScrollBar* ScrollBar() const { return ScrollBarV; }
    SidebarView* Outline() const { return pOutline; }
    MainToolBar* ToolBar() const { return pToolBar; }
    WindowFrame& Frame() const { return *pFrame; }
    VolumeWatcher* Watcher() const { return pVolumes; }
    ScanProgressStrip* ProgressStrip() const { return pStrip; }
    QSplitter* Splitter() const { return pSplit; }
    // The file name that the resting pointer's tool tip shows; empty when none.
    const QString& ToolTipText() const;

  signals:
    // The close has stored the frame and stopped the worker; the settings may be saved.
    void closing();
    // A scan has ended and its items are laid out.
    void scanFinished();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void InitSplitView();
    QWidget* MakePane(QWidget* parent);
    void InitVal();
    void InitScrollbar();
    void WatchVolumes();
    void SelFolder1post();
    void Timer2_Action();
    void ScrollBarV_ValueChanged(int value);
    void Canvas1_MouseDown(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers mods);
    void OutlineDidSelRow(int row, const QString& path);
    void InitCommands();
    void Turned();
    void ExportEnded();

    Settings& pPrefs;
    Prompter& pPrompter;
    std::filesystem::path pSettingsFolder;
    MainToolBar* pToolBar = nullptr;
    SidebarView* pOutline = nullptr;
    VolumeWatcher* pVolumes = nullptr;
    QSplitter* pSplit = nullptr;
    ThumbnailCanvas* Canvas1 = nullptr;
    QScrollBar* ScrollBarV = nullptr;
    ScanProgressStrip* pStrip = nullptr;
    QTimer Timer2;  // polls the worker every 10 ms

    ScanController pScan;
    ItemSelection pSelection;
    CommandState pCommands;
    ScanWorker pWorker;
    std::unique_ptr<CameraEject> pEject;
    std::unique_ptr<ThumbnailCommands> pThumbs;
    std::unique_ptr<WindowMenuCommands> pMenuCmds;  // outlived by the frame's minimise mark
    std::unique_ptr<WindowFrame> pFrame;
    std::unique_ptr<RestingToolTip> pToolTip;
    std::unique_ptr<GridInput> pInput;  // keys, wheel and touchpad of the pane

    bool pActive = false;
    bool pClosed = false;
};

}  // namespace lumivex
