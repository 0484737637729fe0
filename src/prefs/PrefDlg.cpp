#include "prefs/PrefDlg.h"

#include <QActionGroup>
#include <QApplication>
#include <QFrame>
#include <QGuiApplication>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

#include "browser/WindowFrame.h"
#include "core/Globals.h"
#include "core/PrefFile.h"
#include "model/PrefPages.h"
#include "prefs/PrefCameraPage.h"
#include "prefs/PrefColorPage.h"
#include "prefs/PrefExpertPage.h"
#include "prefs/PrefGoogleEarthPage.h"
#include "prefs/PrefOtherPage.h"
#include "prefs/PrefThumbPage.h"

namespace lumivex {

namespace {

// Shown where the desktop's icon theme has no icon of the page's name.
constexpr std::array<QStyle::StandardPixmap, PrefPages::kCount> kFallbackIcons{
    QStyle::SP_DesktopIcon,  QStyle::SP_FileDialogContentsView, QStyle::SP_DriveCDIcon,
    QStyle::SP_DriveNetIcon, QStyle::SP_FileDialogDetailedView, QStyle::SP_MessageBoxWarning,
};

std::int64_t HighlightColour() {
    const QColor c = QApplication::palette().color(QPalette::Active, QPalette::Highlight);
    return (std::int64_t{c.red()} << 16) | (c.green() << 8) | c.blue();
}

QWidget* Spacer() {
    auto* w = new QWidget;
    w->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return w;
}

}  // namespace

PrefDlg::PrefDlg(Context context, QWidget* parent)
    : QDialog(parent),
      prefs_(context.prefs),
      folder_(std::move(context.settingsFolder)),
      values_(PrefValues::From(context.prefs, context.altHeld)) {
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setModal(true);
    const auto& clr = prefs_.gClr;
    const PrefColorPage::Defaults resets{gClrCtoI(clr[29]), gClrCtoI(clr[28]), HighlightColour(),
                                         gClrCtoI(clr[5])};
    const bool beep = gConvIB(prefs_.gPref[pref::kBeepOnCaution], true);
    pages_ = {new PrefColorPage(context.prompter, resets),
              new PrefThumbPage,
              new PrefCameraPage,
              new PrefGoogleEarthPage(context.prompter, std::move(context.locator),
                                      context.applicationsFolder, beep),
              new PrefOtherPage,
              new PrefExpertPage};
    panel_ = new QStackedWidget(this);
    panel_->setObjectName(QStringLiteral("PagePanel1"));
    for (PrefPage* p : pages_) {
        p->Load(values_);
        panel_->addWidget(p);
    }
    BuildToolbar(context.googleEarthIcon);

    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    // Cancel on the left and save on the right, whatever the desktop's button order.
    auto* cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    auto* save = new QPushButton(QStringLiteral("保存"), this);
    cancel->setObjectName(QStringLiteral("PushButton1"));
    save->setObjectName(QStringLiteral("PushButton2"));
    cancel->setMinimumWidth(82);
    save->setMinimumWidth(70);
    cancel->setAutoDefault(false);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, [this] { PushButton2_Action(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* body = new QVBoxLayout;
    body->setContentsMargins(60, 8, 60, 0);
    body->addWidget(panel_, 1);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 12);
    column->addWidget(toolbar_);
    column->addLayout(body, 1);
    column->addWidget(line);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->setContentsMargins(0, 8, 24, 0);
    buttonRow->addStretch(1);
    buttonRow->addWidget(cancel);
    buttonRow->addWidget(save);
    column->addLayout(buttonRow);
    InitApp(prefs_.gPref[pref::kPrefsPage]);
}

void PrefDlg::BuildToolbar(const QIcon& googleEarthIcon) {
    toolbar_ = new QToolBar(this);
    toolbar_->setObjectName(QStringLiteral("ToolbarPrefDlg"));
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    toolbar_->setIconSize(QSize(32, 32));
    toolbar_->setMovable(false);
    toolbar_->addWidget(Spacer());
    auto* group = new QActionGroup(this);
    group->setExclusive(true);
    const auto& all = PrefPages::All();
    for (int i = 0; i < PrefPages::kCount; ++i) {
        if (i == PrefPages::kExpertPage && !values_.expert) continue;
        const auto& page = all[static_cast<std::size_t>(i)];
        QIcon icon = QIcon::fromTheme(QString::fromUtf8(page.icon.data(), page.icon.size()),
                                      style()->standardIcon(kFallbackIcons[i]));
        if (i == 3 && !googleEarthIcon.isNull()) icon = googleEarthIcon;
        QAction* a = toolbar_->addAction(
            icon,
            QString::fromUtf8(page.caption.data(), static_cast<qsizetype>(page.caption.size())));
        a->setObjectName(
            QString::fromUtf8(page.item.data(), static_cast<qsizetype>(page.item.size())));
        a->setCheckable(true);
        group->addAction(a);
        // A click on the page already shown keeps its button pushed (the group sees to it).
        connect(a, &QAction::triggered, this, [this, i] {
            if (i != Page()) MovePage(i, true);
        });
        buttons_[static_cast<std::size_t>(i)] = a;
    }
    toolbar_->addWidget(Spacer());
}

void PrefDlg::InitApp(std::int64_t page) {
    PushButtonItem(page);
    // Another page first, so that the page itself is laid out by a real switch.
    MovePage(PrefPages::Before(PrefPages::Valid(page) ? static_cast<int>(page) : 0), false);
    MovePage(page, false);
}

void PrefDlg::MovePage(std::int64_t page, bool animate) {
    if (!PrefPages::Valid(page)) return;
    const auto& p = PrefPages::All()[static_cast<std::size_t>(page)];
    setWindowTitle(QString::fromUtf8(p.title.data(), static_cast<qsizetype>(p.title.size())));
    // Only the page shown may claim room, or the panel would keep the tallest page's height.
    for (int i = 0; i < PrefPages::kCount; ++i)
        pages_[static_cast<std::size_t>(i)]->setSizePolicy(
            i == page ? QSizePolicy::Preferred : QSizePolicy::Ignored,
            i == page ? QSizePolicy::Preferred : QSizePolicy::Ignored);
    panel_->setCurrentIndex(static_cast<int>(page));
    ResizeWindow(p.height, animate);
}

int PrefDlg::Page() const {
    return panel_->currentIndex();
}

void PrefDlg::PushButtonItem(std::int64_t page) {
    QAction* a = buttons_[static_cast<std::size_t>(PrefPages::PushedButton(page, values_.expert))];
    if (a != nullptr) a->setChecked(true);
}

void PrefDlg::ResizeWindow(int height, bool animate) {
    // The page heights count the content below the toolbar, buttons included.
    const QSize to(PrefPages::kWidth, height + toolbar_->sizeHint().height());
    if (!animate || !isVisible()) {
        setFixedSize(to);
        return;
    }
    // A fixed size would hold the frame still; it is fixed again once the frame has moved.
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QPropertyAnimation* anime = WindowFrame::DoAnime(*this, to.width(), to.height());
    connect(anime, &QPropertyAnimation::finished, this, [this, to] { setFixedSize(to); });
}

void PrefDlg::PushButton2_Action() {
    for (const PrefPage* p : pages_)
        p->Store(values_);
    changes_ = values_.ApplyTo(prefs_);
    saved_ = true;
    accept();
}

void PrefDlg::done(int result) {
    // Saved or not, the page shown last is shown again next time.
    if (prefs_.gPref[pref::kPrefsPage] != Page()) {
        prefs_.gPref[pref::kPrefsPage] = Page();
        if (saved_) changes_.ints.set(pref::kPrefsPage);
    }
    if (saved_) {
        PrefFile::SavePref(prefs_, folder_);
        emit PrefsSaved(changes_);
    }
    QDialog::done(result);
}

bool PrefDlg::AltHeld() {
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
}

PrefChanges PrefDlg::ShowPrefDlg(Context context, QWidget* parent) {
    PrefDlg dlg(std::move(context), parent);
    dlg.exec();
    return dlg.Saved() ? dlg.Changes() : PrefChanges{};
}

}  // namespace lumivex
