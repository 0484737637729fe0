#pragma once
// The main window's toolbar: the command items 601 to 606, 609 and 610 with their labels,
// tool tips and icons, in the order the user chose, with spaces between them. It decides
// nothing: a click goes out as the item's tag, the export button's pop-up as the chosen mode,
// and the enabled states come from the CommandState. The item list and the shown state are
// kept in the toolbar's configuration file and restored when the toolbar is made.
//
// It is meant to stand at the top of the window's central widget rather than in a
// QMainWindow toolbar area: there Qt would unfold the items that do not fit into extra
// rows, while anywhere else its extension button lists them as menu entries.
#include <QHash>
#include <QToolBar>
#include <string>
#include <vector>

#include "shell/ToolbarConfig.h"

class QMenu;
class QToolButton;

namespace lumivex {

class CommandState;

class MainToolBar : public QToolBar {
    Q_OBJECT

  public:
    // Listens to `commands`, which may outlive the toolbar. Restores the saved item list and
    // shown state from `config`.
    MainToolBar(CommandState& commands, ToolbarConfig config = ToolbarConfig(),
                QWidget* parent = nullptr);

    // The item identifiers in toolbar order; a new list is cleaned, shown and saved.
    const std::vector<std::string>& Items() const { return pItems; }
    void SetItems(const std::vector<std::string>& items);

    // Shown or hidden, saved at each change (the window's "ツールバーを隠す" command).
    bool GetToolbarVisible() const { return pShown; }
    void SetToolbarVisible(bool shown);
    void ToggleToolbarShown() { SetToolbarVisible(!pShown); }

    // Opens the customisation dialog over `parent`; its accepted list becomes the toolbar's.
    void RunCustomizationDialog(QWidget* parent);

    // The enabled state of an item, kept also while the item is off the toolbar.
    void ToolbarItemEnableSet(int tag, bool enabled);
    // Whether the menu entry or item with `tag` may run: its button is on the toolbar and
    // enabled. The export pop-up's entries (101-103, 901-903) follow 601.
    bool ToolbarMenuAppeared(int tag) const;
    // The button of an item on the toolbar, or nullptr.
    QToolButton* ToolbarItemGetButton(int tag) const;
    QAction* ActionFor(int tag) const { return pActions.value(tag); }
    QMenu* ExportMenu() const { return pExportMenu; }

    // Google Earth was found: item 606 shows the globe from now on.
    void SetGoogleEarthFound();

  signals:
    // An item was clicked (602 to 610; the export item only opens its pop-up).
    void ToolbarItemClicked(int tag);
    // An entry of the export pop-up was chosen: 0 "exif形式", 1 "非圧縮jpeg", 2 "形式を指定".
    void ExportModeChosen(int mode);
    void ToolbarVisibilityChanged(bool shown);

  private:
    void MakeActions();
    QMenu* MakeExportMenu();
    void Rebuild();
    void AddSpace(bool flexible);
    QIcon IconFor(const std::string& identifier) const;

    ToolbarConfig pConfig;
    QHash<int, QAction*> pActions;
    QMenu* pExportMenu = nullptr;
    QList<QAction*> pSpaces;
    std::vector<std::string> pItems;
    bool pShown = true;
};

}  // namespace lumivex
