#include "shell/MainMenuBar.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>
#include <QPolygon>

#include "model/CommandState.h"
#include "model/MenuRules.h"
#include "shell/MainToolBar.h"
#include "shell/MenuCommands.h"

namespace lumivex {
namespace {

using Handler = void (MenuCommands::*)();

Handler HandlerFor(MenuItem item) {
    switch (item) {
        case MenuItem::FileExportExif:
            return &MenuCommands::_FileExportExif_Action;
        case MenuItem::FileExportJpeg:
            return &MenuCommands::_FileExportJpeg_Action;
        case MenuItem::FileExportSaveAs:
            return &MenuCommands::_FileExportSaveAs_Action;
        case MenuItem::FileExportJpegAll:
            return &MenuCommands::_FileExportJpegAll_Action;
        case MenuItem::FileQuit:
            return &MenuCommands::_FileQuit_Action;
        case MenuItem::EditCopy:
        case MenuItem::EditCopy2:
            return &MenuCommands::_EditCopy_Action;
        case MenuItem::EditSelectAll:
            return &MenuCommands::_EditSelectAll_Action;
        case MenuItem::EditPref:
            return &MenuCommands::_EditPref_Action;
        case MenuItem::ViewReload:
            return &MenuCommands::_ViewReload_Action;
        case MenuItem::ViewAppear:
            return &MenuCommands::_ViewAppear_Action;
        case MenuItem::ViewCustomize:
            return &MenuCommands::_ViewCustomize_Action;
        case MenuItem::ThmbL:
            return &MenuCommands::_ThmbL_Action;
        case MenuItem::ThmbR:
            return &MenuCommands::_ThmbR_Action;
        case MenuItem::WinCollapse:
            return &MenuCommands::_WinCollapse_Action;
        case MenuItem::WinZoom:
            return &MenuCommands::_WinZoom_Action;
        case MenuItem::WinReset:
            return &MenuCommands::_WinReset_Action;
        case MenuItem::WinBringAllFront:
            return &MenuCommands::_WinBringAllFront_Action;
        case MenuItem::WinWindow1:
            return &MenuCommands::_WinWindow1_Action;
        case MenuItem::HelpHome:
            return &MenuCommands::_HelpHome_Action;
        case MenuItem::HelpReadme:
            return &MenuCommands::_HelpReadme_Action;
        case MenuItem::HelpHelpbook:
            return &MenuCommands::_HelpHelpbook_Action;
        case MenuItem::AppleAbout:
            return &MenuCommands::_AppleAbout_Action;
        default:
            return nullptr;
    }
}

// The mark of a minimised window, drawn rather than taken from a theme that may lack it.
QIcon Diamond() {
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygon({{8, 3}, {13, 8}, {8, 13}, {3, 8}}));
    return QIcon(pixmap);
}

}  // namespace

MainMenuBar::MainMenuBar(MenuCommands& commands, QWidget* parent)
    : QMenuBar(parent), pCommands(commands) {
    for (const MenuRow& entry : MenuItems::Table()) {
        QMenu* menu = AddMenu(entry.name, entry.title);
        for (const MenuItemRow& item : entry.items)
            AddItem(menu, item);
    }
    pWinMenu = Menu("Win");
    pWinMenu->installEventFilter(this);
    Action(MenuItem::WinWindow1)->setCheckable(true);
    gSetMenuOnStateImage(false);
    // Shortcuts are matched against the enabled states, so those are brought up to date
    // when any key combination is about to be tried, not only when a menu opens.
    qApp->installEventFilter(this);
}

MenuState MainMenuBar::ToolbarState(const MainToolBar& toolbar) {
    MenuState state;
    state.exportMenuAppeared = toolbar.ToolbarMenuAppeared(CommandState::kExportMenu);
    state.exportAllAppeared = toolbar.ToolbarMenuAppeared(CommandState::kExportAll);
    state.toolbarShown = toolbar.GetToolbarVisible();
    return state;
}

QMenu* MainMenuBar::Menu(const QString& name) const {
    for (QAction* action : actions())
        if (action->menu() && action->menu()->objectName() == name) return action->menu();
    return nullptr;
}

QMenu* MainMenuBar::AddMenu(const char* name, const char* title) {
    QMenu* menu = addMenu(QString::fromUtf8(title));
    menu->setObjectName(QString::fromLatin1(name));
    connect(menu, &QMenu::aboutToShow, this, &MainMenuBar::Event_EnableMenuItems);
    return menu;
}

void MainMenuBar::AddItem(QMenu* menu, const MenuItemRow& entry) {
    QAction* action = entry.item == MenuItem::Separator
                          ? menu->addSeparator()
                          : menu->addAction(QString::fromUtf8(entry.title));
    action->setObjectName(QString::fromLatin1(entry.name));
    const MenuItem item = entry.item;
    if (item == MenuItem::Separator) return;
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    // Until the first menu opens, the items stand as declared (the commands may not be
    // ready to answer yet while the window is being made).
    action->setEnabled(MenuRules::Enabled(item, MenuState{}));
    action->setVisible(MenuRules::Visible(item, MenuState{}, false));
    connect(action, &QAction::triggered, this, [this, item] { Run(item); });
    pActions.insert(static_cast<int>(item), action);
}

void MainMenuBar::Event_EnableMenuItems() {
    const MenuState state = pCommands.MenuStateNow();
    const bool altDown = QGuiApplication::queryKeyboardModifiers() & Qt::AltModifier;
    for (auto it = pActions.cbegin(); it != pActions.cend(); ++it) {
        const auto item = static_cast<MenuItem>(it.key());
        it.value()->setEnabled(MenuRules::Enabled(item, state));
        it.value()->setVisible(MenuRules::Visible(item, state, altDown));
    }
    SetViewAppearTitle(state.toolbarShown);
    Action(MenuItem::WinWindow1)->setChecked(true);
}

void MainMenuBar::SetViewAppearTitle(bool toolbarShown) {
    Action(MenuItem::ViewAppear)
        ->setText(QString::fromUtf8(MenuRules::ViewAppearTitle(toolbarShown)));
}

void MainMenuBar::gSetMenuOnStateImage(bool minimised) {
    QAction* window = Action(MenuItem::WinWindow1);
    window->setChecked(true);
    window->setIcon(minimised ? Diamond() : QIcon());
}

void MainMenuBar::Run(MenuItem item) {
    const Handler handler = HandlerFor(item);
    // The rules are asked again: a state may have changed since the menu was drawn.
    if (!handler || !MenuRules::Enabled(item, pCommands.MenuStateNow())) return;
    (pCommands.*handler)();
    if (item == MenuItem::ViewAppear) SetViewAppearTitle(pCommands.MenuStateNow().toolbarShown);
    if (item == MenuItem::WinWindow1) Action(item)->setChecked(true);
}

// Alt pressed or let go while the window menu is open shows or hides "位置をリセット" at
// once. The press is kept from the menu, which would otherwise close on it.
bool MainMenuBar::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::ShortcutOverride) {
        if (static_cast<QKeyEvent*>(event)->modifiers() & Qt::ControlModifier)
            Event_EnableMenuItems();
        return false;
    }
    if (watched != pWinMenu || (type != QEvent::KeyPress && type != QEvent::KeyRelease))
        return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Alt) return false;
    ShowResetItem(type == QEvent::KeyPress);
    return type == QEvent::KeyPress;
}

void MainMenuBar::ShowResetItem(bool altDown) {
    const MenuState state = pCommands.MenuStateNow();
    Action(MenuItem::WinReset)->setVisible(MenuRules::Visible(MenuItem::WinReset, state, altDown));
}

}  // namespace lumivex
