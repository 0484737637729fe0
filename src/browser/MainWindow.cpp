#include "browser/MainWindow.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include "browser/GridInput.h"
#include "browser/MenuOfTexts.h"
#include "browser/Prompter.h"
#include "browser/RestingToolTip.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ThumbnailCanvas.h"
#include "browser/ThumbnailCommands.h"
#include "browser/WindowFrame.h"
#include "browser/WindowMenuCommands.h"
#include "core/Settings.h"
#include "model/ContextMenuItems.h"
#include "model/FolderTree.h"
#include "scan/ScanOptions.h"
#include "shell/MainToolBar.h"
#include "sidebar/SidebarView.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {
namespace {

constexpr int kScrollBarWidth = 15;
// How long a close waits for a scan to stop before the process ends regardless.
constexpr std::chrono::milliseconds kCloseWait{2000};

}  // namespace

MainWindow::MainWindow(Settings& prefs, Prompter& prompter, QWidget* parent)
    : QMainWindow(parent), pPrefs(prefs), pPrompter(prompter) {
    setWindowTitle(QStringLiteral("Lumivex Plus"));
    setMinimumSize(kMinWidth, kMinHeight);
    resize(kMinWidth, kMinHeight);
    Timer2.setInterval(10);
    connect(&Timer2, &QTimer::timeout, this, &MainWindow::Timer2_Action);
}

MainWindow::~MainWindow() = default;

void MainWindow::InitApp() {
    InitSplitView();
    WatchVolumes();
    pFrame = std::make_unique<WindowFrame>(*this, *pSplit, *Canvas1, kScrollBarWidth);
    pFrame->Restore(pPrefs);
    InitCommands();
    pMenuCmds->Install();
    InitVal();
    if (pThumbs->GetGoogleEarth()) pToolBar->SetGoogleEarthFound();
    InitScrollbar();
    InitOffScreen(false);
    pToolTip->Start();
    pOutline->AutoSelect();
}

// The toolbar stands in the central widget, where items that do not fit go into its
// extension menu instead of new rows.
void MainWindow::InitSplitView() {
    auto* holder = new QWidget(this);
    auto* column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    pToolBar = new MainToolBar(pCommands, ToolbarConfig(), holder);
    column->addWidget(pToolBar);
    pSplit = new QSplitter(Qt::Horizontal, holder);
    pSplit->setChildrenCollapsible(false);
    pOutline = new SidebarView(pPrefs, pSplit);
    pOutline->setMinimumWidth(100);
    pOutline->setAccessibleName(QStringLiteral("フォルダー一覧"));
    pSplit->addWidget(pOutline);
    pSplit->addWidget(MakePane(pSplit));
    pSplit->setStretchFactor(1, 1);
    column->addWidget(pSplit, 1);
    setCentralWidget(holder);

    connect(pOutline, &SidebarView::selectionDidChange, this, &MainWindow::OutlineDidSelRow);
    connect(pStrip, &ScanProgressStrip::stopClicked, this, &MainWindow::PushButton1_Action);
    connect(Canvas1, &ThumbnailCanvas::pressed, this, &MainWindow::Canvas1_MouseDown);
    // After the press handler above, so that a click has selected when the input hears it.
    pInput = std::make_unique<GridInput>(
        GridInput::Window{*this, *Canvas1, *ScrollBarV, pScan, pSelection});
}

// The thumbnail pane: the canvas with its scroll bar, the progress strip below both.
QWidget* MainWindow::MakePane(QWidget* parent) {
    auto* pane = new QWidget(parent);
    pane->setMinimumWidth(100);
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    Canvas1 = new ThumbnailCanvas(pane);
    Canvas1->SetItems(&pScan.Items(), &pScan.Layout(), &pScan.Pictures());
    Canvas1->SetSelection(&pSelection);
    Canvas1->installEventFilter(this);
    pToolTip = std::make_unique<RestingToolTip>(*Canvas1, pScan.Items());
    ScrollBarV = new QScrollBar(Qt::Vertical, pane);
    ScrollBarV->setFixedWidth(kScrollBarWidth);
    pStrip = new ScanProgressStrip(pane);
    grid->addWidget(Canvas1, 0, 0);
    grid->addWidget(ScrollBarV, 0, 1);
    grid->addWidget(pStrip, 1, 0, 1, 2);
    return pane;
}

// The sidebar follows the volumes; the eject at quit silences the watcher first.
void MainWindow::WatchVolumes() {
    pVolumes = new VolumeWatcher([this] { return pOutline->Tree().Options().volumeMode; }, this);
    pOutline->ListenTo(*pVolumes);
    pEject = std::make_unique<CameraEject>(pPrompter, *pVolumes);
    connect(pOutline, &SidebarView::ejectRequested, this,
            [this](const QString& point) { pEject->EjectVolume(this, point.toStdString()); });
}

void MainWindow::InitCommands() {
    pThumbs = std::make_unique<ThumbnailCommands>(
        ThumbnailCommands::Window{pPrefs, pPrompter, pWorker, *pStrip, pScan, pSelection, this});
    connect(pThumbs.get(), &ThumbnailCommands::turned, this, &MainWindow::Turned);
    connect(pThumbs.get(), &ThumbnailCommands::exportEnded, this, &MainWindow::ExportEnded);
    pMenuCmds =
        std::make_unique<WindowMenuCommands>(*this, pPrefs, pPrompter, *pToolBar, pSettingsFolder);
}

void MainWindow::InitVal() {
    ApplyDisplayPrefs();
    SetBtnStat(0);
    SetBtnStatAll(false);
    pStrip->HideJob();
}

void MainWindow::ApplyDisplayPrefs() {
    Canvas1->SetColors(static_cast<int>(pPrefs.gPref[pref::kThumbBackColor]),
                       static_cast<int>(pPrefs.gPref[pref::kSelectionColor]));
    const bool fullNames = pPrefs.gPref[pref::kShowExtension] != 0;
    Canvas1->SetFullNames(fullNames);
    pScan.SetLabels([this](const std::string& label) { return Canvas1->TextWidth(label); },
                    fullNames);
    pOutline->SetFolderColor(static_cast<int>(pPrefs.gPref[pref::kFolderNameColor]));
    pOutline->SetListColor(static_cast<int>(pPrefs.gPref[pref::kListBackColor]));
    ResizeTBC();
    Canvas1->update();
}

void MainWindow::InitScrollbar() {
    ScrollBarV->setSingleStep(kLineStep);
    ScrollBarV->setMinimum(0);
    connect(ScrollBarV, &QScrollBar::valueChanged, this, &MainWindow::ScrollBarV_ValueChanged);
}

// ---- the scan -------------------------------------------------------------------------

void MainWindow::SelFolder1(const std::string& path) {
    if (!pScan.Begin(path, Canvas1->width(), pWorker.Running())) return;
    Canvas1->update();
    pStrip->ShowJob(QStringLiteral("読み込み中..."), 0);
    pWorker.Start(path, ScanOptions::FromSettings(pPrefs));
    Timer2.start();
}

void MainWindow::Timer2_Action() {
    const bool ended = pWorker.End();  // before the take: nothing can follow the end
    const int bottom = Canvas1->ScrollY() + Canvas1->height();
    if (pScan.Take(pWorker.TakeItems(), bottom)) Canvas1->update();
    if (!ended) {
        pStrip->SetMaximum(static_cast<int>(pWorker.Total()));
        pStrip->SetValue(static_cast<int>(pWorker.ProgVal()));
        return;
    }
    pStrip->HideJob();
    Timer2.stop();
    pWorker.Finish(kCloseWait);
    if (const std::string next = pScan.TakePending(); !next.empty()) {
        SelFolder1(next);
        return;
    }
    if (pScan.Settle(Canvas1->width())) SelFolder1post();
}

void MainWindow::SelFolder1post() {
    InitOffScreen(false);
    Canvas1->update();
    SetBtnStatAll(!Items().empty());
    emit scanFinished();
}

void MainWindow::SelFolderClr() {
    if (pScan.Clear(pWorker.Running())) pWorker.Stop();
    InitOffScreen(false);
    Canvas1->update();
    SetBtnStatAll(false);
}

void MainWindow::PushButton1_Action() {
    pWorker.Stop();
}

void MainWindow::OutlineDidSelRow(int row, const QString& path) {
    const std::string folder = path.toStdString();
    switch (pScan.Choose(row, folder, pWorker.Running(), pOutline->AutoSelecting())) {
        case ScanController::RowStep::Keep:
            return;  // an export reads the list: the selection stays as well
        case ScanController::RowStep::Clear:
            ItemUnselect();
            SelFolderClr();
            return;
        case ScanController::RowStep::Start:
            ItemUnselect();
            SelFolder1(folder);
            return;
    }
}

// What the sidebar asked for during an export happens now: a card that came is read, a card
// that went leaves an empty grid.
void MainWindow::ExportEnded() {
    std::string next;
    switch (pScan.EndExport(next)) {
        case ScanController::RowStep::Start:
            SelFolder1(next);
            return;
        case ScanController::RowStep::Clear:
            ItemUnselect();
            SelFolderClr();
            return;
        case ScanController::RowStep::Keep:
            return;
    }
}

// ---- layout and scrolling --------------------------------------------------------------

void MainWindow::InitOffScreen(bool keepScroll) {
    const ScrollRange r = pScan.Layout().Range(Canvas1->height());
    if (r.enabled) {
        ScrollBarV->setEnabled(true);
        ScrollBarV->setMaximum(r.maximum);
        ScrollBarV->setPageStep(r.pageStep);
        if (!keepScroll) ScrollBarV->setValue(0);
    } else {
        ScrollBarV->setValue(0);
        ScrollBarV->setMaximum(0);
        ScrollBarV->setEnabled(false);
    }
    Canvas1->SetScrollY(ScrollBarV->value());
}

void MainWindow::ResizeTBC() {
    if (!pScan.Reflow(Canvas1->width(), pWorker.Running())) return;
    InitOffScreen(true);
    Canvas1->update();
}

void MainWindow::ScrollBarV_ValueChanged(int value) {
    Canvas1->SetScrollY(value);
}

// ---- selection and pointer -------------------------------------------------------------

void MainWindow::Canvas1_MouseDown(int x, int y, Qt::MouseButton button,
                                   Qt::KeyboardModifiers mods) {
    const int py = y + Canvas1->ScrollY();
    const bool menu = button == Qt::RightButton;
    // A right click on a selected item keeps the selection for the menu.
    if (!(menu && ItemSelection::ItemClickInside(Items(), x, py))) {
        SetBtnStat(pSelection.ItemNoGet(pScan.Items(), x, py, mods.testFlag(Qt::ShiftModifier)));
        Canvas1->update();
    }
    if (!menu) return;
    if (QMenu* m = BuildContextMenu(this)) {
        m->setAttribute(Qt::WA_DeleteOnClose);
        m->popup(Canvas1->mapToGlobal(QPoint(x, y)));
    }
}

// The menu tests the file for a position itself: it offers Google Earth even when the
// settings keep the toolbar's button off.
QMenu* MainWindow::BuildContextMenu(QWidget* parent) {
    const int flg = pSelection.pCidxFlg;
    const bool gps = flg == 1 && pThumbs->SetBtnStatGPS(flg);
    QMenu* menu = MenuOfTexts(ContextMenuItems(flg, gps), parent);
    if (menu != nullptr)
        connect(menu, &QMenu::triggered, this,
                [this](QAction* a) { Canvas1_ContextualMenuAction(a->text()); });
    return menu;
}

bool MainWindow::Canvas1_ContextualMenuAction(const QString& text) {
    return pThumbs->Canvas1_ContextualMenuAction(text.toStdString());
}

// ---- thumbnail commands ----------------------------------------------------------------

void MainWindow::ExportThumbNail(int mode) {
    pThumbs->ExportThumbNail(mode);
}

void MainWindow::ExportThumbNailAll() {
    pThumbs->ExportThumbNailAll();
}

void MainWindow::RotateImageL() {
    pThumbs->RotateImageL();
}

void MainWindow::RotateImageR() {
    pThumbs->RotateImageR();
}

bool MainWindow::GenClipboard() {
    return pThumbs->GenClipboard();
}

void MainWindow::SelFileExifGPS(int index) {
    pThumbs->SelFileExifGPS(index);
}

void MainWindow::LaunchGEarth() {
    pThumbs->LaunchGEarth();
}

// Turned items change shape: the grid flows again (after the scan, when one runs) and the
// turned pictures are painted.
void MainWindow::Turned() {
    ResizeTBC();
    Canvas1->update();
}

void MainWindow::ItemUnselect() {
    pSelection.ItemUnselect(pScan.Items());
    SetBtnStat(0);
}

void MainWindow::SelectAll() {
    pSelection.SelectAll(pScan.Items());
    Canvas1->update();
    SetBtnStat(2);
}

void MainWindow::SetBtnStat(int state) {
    pCommands.SetBtnStat(state, pPrefs.gPref[pref::kGoogleEarthAllowed] == 1,
                         [this](int count) { return pThumbs && pThumbs->SetBtnStatGPS(count); });
}

const QString& MainWindow::ToolTipText() const {
    return pToolTip->Text();
}

void MainWindow::SetBtnStatAll(bool enable) {
    pCommands.SetBtnStatAll(enable);
}

// ---- window events ---------------------------------------------------------------------

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Canvas1 && event->type() == QEvent::Resize) ResizeTBC();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && pSplit != nullptr) {
        pActive = isActiveWindow();
        QPalette pal = palette();
        pal.setColor(QPalette::Window, pActive ? QColor(153, 153, 153) : QColor(207, 207, 207));
        pSplit->setPalette(pal);
    } else if (event->type() == QEvent::WindowStateChange) {
        if (pFrame) pFrame->Event_WindowStateChange();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    Event_CancelClose();
    event->accept();
}

void MainWindow::Event_CancelClose() {
    if (pClosed) return;
    pClosed = true;
    pFrame->Save(pPrefs);
    pToolTip->Stop();
    Timer2.stop();
    if (pWorker.Running()) {
        pWorker.Stop();
        pWorker.Finish(kCloseWait);
    }
    UnmountCam();
    emit closing();
}

void MainWindow::UnmountCam() {
    if (pEject == nullptr || pOutline == nullptr) return;
    pEject->UnmountCam(this, pOutline->gFI, pPrefs.gPref[pref::kEjectAtQuit] != 0);
}

}  // namespace lumivex
