#pragma once
// The window's menu bar: ファイル, 編集, 表示, 操作, ウィンドウ and ヘルプ as MenuItems lists
// them. A chosen item goes to its handler on MenuCommands; whether it may run, and whether it
// shows, is decided by MenuRules from the state the commands report.
#include <QHash>
#include <QMenuBar>

#include "model/MenuItems.h"

class QAction;
class QMenu;

namespace lumivex {

class MainToolBar;
class MenuCommands;
struct MenuState;

class MainMenuBar : public QMenuBar {
    Q_OBJECT

  public:
    // `commands` outlives the menu bar.
    explicit MainMenuBar(MenuCommands& commands, QWidget* parent = nullptr);

    // The part of the menu state that the toolbar holds: whether items 601 and 602 are on
    // it and enabled, and whether it is shown. The rest is the window's to fill in.
    static MenuState ToolbarState(const MainToolBar& toolbar);

    QAction* Action(MenuItem item) const { return pActions.value(static_cast<int>(item)); }
    // A menu by its name in MenuItems ("FileMenu", "Win", ...), or nullptr.
    QMenu* Menu(const QString& name) const;

    // Enables, shows and titles every item from the state now. Runs before each menu opens
    // and before a shortcut is matched, so a shortcut never sees a stale state.
    void Event_EnableMenuItems();
    // "ツールバーを隠す" while the toolbar is shown, "ツールバーを表示" while it is hidden.
    void SetViewAppearTitle(bool toolbarShown);
    // gSetMenuOnStateImage: the window's item is ticked, with a diamond while it is minimised.
    void gSetMenuOnStateImage(bool minimised);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QMenu* AddMenu(const char* name, const char* title);
    void AddItem(QMenu* menu, const MenuItemRow& entry);
    void Run(MenuItem item);
    void ShowResetItem(bool altDown);

    MenuCommands& pCommands;
    QHash<int, QAction*> pActions;
    QMenu* pWinMenu = nullptr;
};

}  // namespace lumivex
