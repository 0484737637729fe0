#include "browser/MainWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QToolTip>
#include <algorithm>
#include <system_error>
#include <utility>

#include "browser/ContextMenuItems.h"
#include "browser/Prompter.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ThumbnailCanvas.h"
#include "core/Settings.h"
#include "platform/DiskEjector.h"
#include "platform/MountTable.h"
#include "scan/ScanOptions.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

constexpr int kScrollBarWidth = 15;
// How long a close waits for a scan to stop before the process ends regardless.
constexpr std::chrono::milliseconds kCloseWait{2000};
// How long the quit waits for the eject of the camera (a busy disk can make it stall).
constexpr std::chrono::milliseconds kEjectWait{20000};

bool IsFolder(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_directory(path, ec);
}

}  // namespace

MainWindow::MainWindow(Settings& prefs, Prompter& prompter, QWidget* parent)
    : QMainWindow(parent), prefs_(prefs), prompter_(prompter) {
    setWindowTitle(QStringLiteral("Lumivex Plus"));
    setMinimumSize(kMinWidth, kMinHeight);
    resize(kMinWidth, kMinHeight);
    Timer1.setInterval(1000);
    Timer2.setInterval(10);
    connect(&Timer1, &QTimer::timeout, this, &MainWindow::Timer1_Action);
    connect(&Timer2, &QTimer::timeout, this, &MainWindow::Timer2_Action);
}

MainWindow::~MainWindow() = default;

void MainWindow::InitApp() {
    InitSplitView();
    InitWinPos();
    InitVal();
    InitScrollbar();
    InitOffScreen(false);
    Timer1.start();
    pOutline->AutoSelect();
}

void MainWindow::InitSplitView() {
    split_ = new QSplitter(Qt::Horizontal, this);
    split_->setChildrenCollapsible(false);
    pOutline = new SidebarView(prefs_, split_);
    pOutline->setMinimumWidth(100);

    auto* pane = new QWidget(split_);
    pane->setMinimumWidth(100);
    auto* grid = new QGridLayout(pane);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    Canvas1 = new ThumbnailCanvas(pane);
    Canvas1->SetItems(&pCItem, &layout_);
    Canvas1->installEventFilter(this);
    ScrollBarV = new QScrollBar(Qt::Vertical, pane);
    ScrollBarV->setFixedWidth(kScrollBarWidth);
    strip_ = new ScanProgressStrip(pane);
    grid->addWidget(Canvas1, 0, 0);
    grid->addWidget(ScrollBarV, 0, 1);
    grid->addWidget(strip_, 1, 0, 1, 2);
    split_->addWidget(pOutline);
    split_->addWidget(pane);
    split_->setStretchFactor(1, 1);
    setCentralWidget(split_);

    connect(pOutline, &SidebarView::selectionDidChange, this, &MainWindow::OutlineDidSelRow);
    connect(strip_, &ScanProgressStrip::stopClicked, this, &MainWindow::PushButton1_Action);
    connect(Canvas1, &ThumbnailCanvas::pressed, this, &MainWindow::Canvas1_MouseDown);
    connect(Canvas1, &ThumbnailCanvas::moved, this, &MainWindow::Canvas1_MouseMove);
    connect(Canvas1, &ThumbnailCanvas::wheelLines, this, &MainWindow::Canvas1_MouseWheel);
}

// The frame the user left is restored as it was; sizes below the minimum give the minimum.
void MainWindow::InitWinPos() {
    const auto& p = prefs_.gPref;
    int left = p[pref::kFrameLeft] > 0 ? static_cast<int>(p[pref::kFrameLeft]) : x();
    int top = p[pref::kFrameTop] > 0 ? static_cast<int>(p[pref::kFrameTop]) : y();
    move(left, top);
    const int w = p[pref::kFrameWidth] > 0
                      ? static_cast<int>(std::max<std::int64_t>(p[pref::kFrameWidth], kMinWidth))
                      : width();
    const int h = p[pref::kFrameHeight] > 0
                      ? static_cast<int>(std::max<std::int64_t>(p[pref::kFrameHeight], kMinHeight))
                      : height();
    resize(w, h);
}

void MainWindow::InitVal() {
    ResizeSeparatePos(static_cast<int>(prefs_.gPref[pref::kDividerLeft]));
    pBkClr = static_cast<int>(prefs_.gPref[pref::kThumbBackColor]);
    pSeClr = static_cast<int>(prefs_.gPref[pref::kSelectionColor]);
    pGxClr = static_cast<int>(prefs_.gPref[pref::kFolderNameColor]);
    pLsClr = static_cast<int>(prefs_.gPref[pref::kListBackColor]);
    Canvas1->SetColors(pBkClr, pSeClr);
    Canvas1->SetFullNames(prefs_.gPref[pref::kShowExtension] != 0);
    pOutline->SetFolderColor(pGxClr);
    layout_.InitCanvas();
    SetBtnStat(0);
    SetBtnStatAll(false);
    strip_->HideJob();
}

void MainWindow::InitScrollbar() {
    ScrollBarV->setSingleStep(kLineStep);
    ScrollBarV->setMinimum(0);
    connect(ScrollBarV, &QScrollBar::valueChanged, this, &MainWindow::ScrollBarV_ValueChanged);
}

// The divider: the sidebar at least 100 pixels, the pane too; `left` is the canvas's left edge.
void MainWindow::ResizeSeparatePos(int left) {
    const int limit = width() - kScrollBarWidth + 1 - 100;
    left = GridLayout::ClampDivider(left, limit);
    const int total = split_->width() > 0 ? split_->width() : width();
    const int sidebar = std::max(100, left - split_->handleWidth());
    split_->setSizes({sidebar, std::max(100, total - sidebar - split_->handleWidth())});
}

int MainWindow::CanvasLeft() const {
    return Canvas1->mapTo(this, QPoint(0, 0)).x();
}

// ---- the scan -------------------------------------------------------------------------

void MainWindow::SelFolder1(const std::string& path) {
    if (worker_.Running() || path.empty() || !IsFolder(path)) return;
    pThread1_Mode = 1;
    pThread1_Width = Canvas1->width();
    dropRestOfScan_ = false;
    // The list is emptied here rather than on the worker, which never touches it.
    layout_.InitCanvas();
    layout_.pYmax = 0;
    pCItem.clear();
    Canvas1->update();
    strip_->ShowJob(QStringLiteral("読み込み中..."), 0);
    worker_.Start(path, ScanOptions::FromSettings(prefs_));
    Timer2.start();
}

void MainWindow::TakeScanItems() {
    std::vector<ScanItem> ready = worker_.TakeItems();
    if (ready.empty() || dropRestOfScan_) return;
    const int top = Canvas1->ScrollY();
    bool visible = false;
    for (auto& scanned : ready) {
        ItemRecord item = ItemRecord::FromScan(std::move(scanned));
        layout_.SetItemPos(item, pThread1_Width);
        visible = visible || item.y < top + Canvas1->height();
        pCItem.push_back(std::move(item));
    }
    if (visible) Canvas1->update();
}

void MainWindow::Timer2_Action() {
    const bool ended = worker_.End();  // before the take: nothing can follow the end
    TakeScanItems();
    if (!ended) {
        strip_->SetMaximum(static_cast<int>(worker_.Total()));
        strip_->SetValue(static_cast<int>(worker_.ProgVal()));
        return;
    }
    strip_->HideJob();
    Timer2.stop();
    worker_.Finish(kCloseWait);
    if (!pendingFolder_.empty()) {
        SelFolder1(std::exchange(pendingFolder_, {}));
        return;
    }
    if (pThread1_Mode == 1) SelFolder1post();
}

void MainWindow::SelFolder1post() {
    // A resize during the scan was held back; the new width applies now.
    if (Canvas1->width() != pThread1_Width) {
        pThread1_Width = Canvas1->width();
        layout_.Flow(pCItem, pThread1_Width);
    }
    InitOffScreen(false);
    Canvas1->update();
    SetBtnStatAll(!pCItem.empty());
    emit scanFinished();
}

// Emptying the grid during a scan also ends the scan: what it would still bring belongs to
// a folder that is no longer shown.
void MainWindow::SelFolderClr() {
    if (worker_.Running()) {
        dropRestOfScan_ = true;
        worker_.Stop();
    }
    layout_.InitCanvas();
    layout_.pYmax = 0;
    pCItem.clear();
    InitOffScreen(false);
    Canvas1->update();
    SetBtnStatAll(false);
}

void MainWindow::PushButton1_Action() {
    worker_.Stop();
}

void MainWindow::OutlineDidSelRow(int row, const QString& path) {
    ItemUnselect();
    if (row < 0) {
        pendingFolder_.clear();
        SelFolderClr();
        return;
    }
    // A card that was just put in wins over the folder being read: that scan gives way, and
    // the card's folder is read when it has stopped. Other selections during a scan are
    // dropped, unless a scan is already giving way; then the newest one is read.
    if (worker_.Running() && pThread1_Mode == 1 &&
        (pOutline->AutoSelecting() || !pendingFolder_.empty())) {
        pendingFolder_ = path.toStdString();
        SelFolderClr();
        return;
    }
    SelFolder1(path.toStdString());
}

// ---- layout and scrolling --------------------------------------------------------------

void MainWindow::InitOffScreen(bool keepScroll) {
    const ScrollRange r = layout_.Range(Canvas1->height());
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
    if (worker_.Running()) return;  // the end of the scan lays out at the final width
    pThread1_Width = Canvas1->width();
    layout_.Flow(pCItem, pThread1_Width);
    InitOffScreen(true);
    Canvas1->update();
}

void MainWindow::ScrollBarV_ValueChanged(int value) {
    Canvas1->SetScrollY(value);
    if (!pCItem.empty()) Canvas1->update();
}

void MainWindow::Canvas1_MouseWheel(int lines) {
    if (ScrollBarV->isEnabled()) ScrollBarV->setValue(ScrollBarV->value() + lines * kLineStep);
}

// ---- selection and pointer -------------------------------------------------------------

void MainWindow::Canvas1_MouseDown(int x, int y, Qt::MouseButton button,
                                   Qt::KeyboardModifiers mods) {
    const int py = y + Canvas1->ScrollY();
    pCMflg = button == Qt::RightButton;
    const bool keep = pCMflg && ItemSelection::ItemClickInside(pCItem, x, py);
    if (!keep) {
        SetBtnStat(selection_.ItemNoGet(pCItem, x, py, mods.testFlag(Qt::ShiftModifier)));
        Canvas1->update();
    }
    if (pCMflg) {
        pCMflg = false;
        if (QMenu* menu = BuildContextMenu(this)) {
            menu->setAttribute(Qt::WA_DeleteOnClose);
            menu->popup(Canvas1->mapToGlobal(QPoint(x, y)));
        }
    }
}

QMenu* MainWindow::BuildContextMenu(QWidget* parent) {
    const bool gps = commands_.Enabled(CommandState::kGoogleEarth);
    const auto texts = ContextMenuItems(selection_.pCidxFlg, gps);
    if (texts.empty()) return nullptr;
    auto* menu = new QMenu(parent);
    for (const auto& text : texts) {
        if (text == "-")
            menu->addSeparator();
        else
            menu->addAction(QString::fromStdString(text));
    }
    return menu;
}

void MainWindow::ItemUnselect() {
    selection_.ItemUnselect(pCItem);
    SetBtnStat(0);
}

void MainWindow::SelectAll() {
    selection_.SelectAll(pCItem);
    Canvas1->update();
    SetBtnStat(2);
}

void MainWindow::SetBtnStat(int state) {
    // Whether the selected picture carries a position comes with the Google Earth hand-off;
    // until then its command stays off.
    commands_.SetBtnStat(state, prefs_.gPref[pref::kGoogleEarthAllowed] == 1,
                         [](int) { return false; });
}

void MainWindow::SetBtnStatAll(bool enable) {
    commands_.SetBtnStatAll(enable);
}

void MainWindow::Canvas1_MouseMove(int x, int y) {
    pMouseX = x;
    pMouseY = y;
    Timer1.start();
}

void MainWindow::Timer1_Action() {
    ShowToolTips(pMouseX == pMouseX2 && pMouseY == pMouseY2);
    pMouseX2 = pMouseX;
    pMouseY2 = pMouseY;
}

// The full name of a thumbnail whose label was cut, once the pointer has rested on it.
void MainWindow::ShowToolTips(bool on) {
    if (!on) {
        toolTipText_.clear();
        QToolTip::hideText();
        return;
    }
    const int i = ItemSelection::HitIndex(pCItem, pMouseX, pMouseY + Canvas1->ScrollY());
    if (i < 0) return;
    const ItemRecord& item = pCItem[static_cast<std::size_t>(i)];
    if (!item.compact) {
        toolTipText_.clear();
        QToolTip::hideText();
        return;
    }
    toolTipText_ = Canvas1->LabelOf(item);
    const QRect cell(item.x, item.y - Canvas1->ScrollY(), item.w, item.h);
    QToolTip::showText(Canvas1->mapToGlobal(QPoint(pMouseX, pMouseY)), toolTipText_, Canvas1, cell);
    Timer1.stop();
}

// ---- window events ---------------------------------------------------------------------

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Canvas1 && event->type() == QEvent::Resize) ResizeTBC();
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::ActivationChange && split_ != nullptr) {
        pActive = isActiveWindow();
        QPalette pal = palette();
        pal.setColor(QPalette::Window, pActive ? QColor(153, 153, 153) : QColor(207, 207, 207));
        split_->setPalette(pal);
    } else if (event->type() == QEvent::WindowStateChange) {
        pMinimize = isMinimized();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    Event_CancelClose();
    event->accept();
}

void MainWindow::Event_CancelClose() {
    if (closed_) return;
    closed_ = true;
    auto& p = prefs_.gPref;
    p[pref::kFrameLeft] = x();
    p[pref::kFrameTop] = y();
    p[pref::kFrameWidth] = width();
    p[pref::kFrameHeight] = height();
    p[pref::kDividerLeft] = CanvasLeft();
    Timer1.stop();
    Timer2.stop();
    if (worker_.Running()) {
        worker_.Stop();
        worker_.Finish(kCloseWait);
    }
    UnmountCam();
    emit closing();
}

void MainWindow::UnmountCam() {
    const std::string volume = pOutline != nullptr ? pOutline->gFI : std::string();
    // Still there means still mounted: an emptied mount point may stay behind as a folder.
    // The start-up disk is never ejected.
    if (prefs_.gPref[pref::kEjectAtQuit] == 0 || volume.empty() || volume == "/") return;
    if (MountTable::Read().Find(volume) == nullptr) return;
    pOutline->RemoveObserver();  // our own eject is not news to the sidebar
    std::filesystem::path script = ejectScript_;
    if (script.empty())
        script = DiskEjector::ScriptPath(QCoreApplication::applicationDirPath().toStdString());
    std::error_code ec;
    if (!std::filesystem::is_regular_file(script, ec)) {
        prompter_.Message(this, QStringLiteral("file not found."));
        return;
    }
    const int code = DiskEjector::Run(DiskEjector::Command(script, volume), kEjectWait);
    if (code != 0) prompter_.Message(this, QStringLiteral("error code: %1").arg(code));
}

}  // namespace lumivex
