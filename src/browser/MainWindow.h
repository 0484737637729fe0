#pragma once
// The main window: the sidebar and the thumbnail pane side by side. It owns the item list and
// the helpers that work on it: the grid layout, the selection, the command state, the scan
// worker and the progress strip. The window is the application: closing it ends the program.
#include <QMainWindow>
#include <QTimer>
#include <filesystem>
#include <string>
#include <vector>

#include "browser/CommandState.h"
#include "browser/GridLayout.h"
#include "browser/ItemRecord.h"
#include "browser/ItemSelection.h"
#include "browser/ScanWorker.h"

class QMenu;
class QScrollBar;
class QSplitter;

namespace lumivex {

class SidebarView;
class Prompter;
class ScanProgressStrip;
class Settings;
class ThumbnailCanvas;

class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    static constexpr int kMinWidth = 725;
    static constexpr int kMinHeight = 524;
    static constexpr int kLineStep = 10;

    // `prefs` and `prompter` outlive the window.
    MainWindow(Settings& prefs, Prompter& prompter, QWidget* parent = nullptr);
    ~MainWindow() override;

    // The start: split view, position, values, scroll bar.
    void InitApp();

    // Scan of a folder (the selection of a sidebar row), and the empty grid.
    void SelFolder1(const std::string& path);
    void SelFolderClr();
    void PushButton1_Action();
    bool ScanRunning() const { return worker_.Running(); }

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
    // Ejects the volume on which camera media was found at start or on a mount, when the
    // settings ask for it and it is still mounted. A failure is reported and the quit goes on.
    void UnmountCam();
    // The eject script; by default beside the executable's folder, in share/lumivex-plus.
    void SetEjectScript(const std::filesystem::path& script) { ejectScript_ = script; }

    // The contextual menu for the present selection; its actions come with the commands.
    QMenu* BuildContextMenu(QWidget* parent);

    // What the window holds, for the program's other parts and for tests.
    const std::vector<ItemRecord>& Items() const { return pCItem; }
    const ItemSelection& Selection() const { return selection_; }
    const CommandState& Commands() const { return commands_; }
    CommandState& Commands() { return commands_; }
    ThumbnailCanvas* Canvas() const { return Canvas1; }
    QScrollBar* ScrollBar() const { return ScrollBarV; }
    SidebarView* Outline() const { return pOutline; }
    ScanProgressStrip* ProgressStrip() const { return strip_; }
    QSplitter* Splitter() const { return split_; }
    // The file name that the resting pointer's tool tip shows; empty when none.
    const QString& ToolTipText() const { return toolTipText_; }

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
    void InitWinPos();
    void InitVal();
    void InitScrollbar();
    void SelFolder1post();
    void Timer2_Action();
    void Timer1_Action();
    void TakeScanItems();
    void ShowToolTips(bool on);
    void ScrollBarV_ValueChanged(int value);
    void Canvas1_MouseWheel(int lines);
    void Canvas1_MouseDown(int x, int y, Qt::MouseButton button, Qt::KeyboardModifiers mods);
    void Canvas1_MouseMove(int x, int y);
    void OutlineDidSelRow(int row, const QString& path);
    void ResizeSeparatePos(int left);
    int CanvasLeft() const;

    Settings& prefs_;
    Prompter& prompter_;
    SidebarView* pOutline = nullptr;
    QSplitter* split_ = nullptr;
    ThumbnailCanvas* Canvas1 = nullptr;
    QScrollBar* ScrollBarV = nullptr;
    ScanProgressStrip* strip_ = nullptr;
    QTimer Timer1;  // the tool tip's rest test, every second
    QTimer Timer2;  // polls the worker every 10 ms

    std::vector<ItemRecord> pCItem;
    GridLayout layout_;
    ItemSelection selection_;
    CommandState commands_;
    ScanWorker worker_;
    int pThread1_Mode = 0;
    int pThread1_Width = 0;
    bool dropRestOfScan_ = false;  // the grid was emptied while the worker ran
    std::string pendingFolder_;    // a camera folder to read once the stopped scan has ended
    std::filesystem::path ejectScript_;

    int pBkClr = 0;
    int pSeClr = 0;
    int pGxClr = 0;
    int pLsClr = 0;
    bool pActive = false;
    bool pMinimize = false;
    bool pCMflg = false;
    int pMouseX = 0, pMouseY = 0;
    int pMouseX2 = -1, pMouseY2 = -1;
    QString toolTipText_;
    bool closed_ = false;
};

}  // namespace lumivex
