#include "shell/MainToolBar.h"

#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <QWidgetAction>
#include <utility>

#include "model/CommandState.h"
#include "model/ToolbarItems.h"
#include "shell/ToolbarCustomizeDialog.h"
#include "shell/ToolbarIcons.h"

namespace lumivex {

namespace {
constexpr int kSpaceWidth = 16;
constexpr int kIconSize = 24;
}  // namespace

MainToolBar::MainToolBar(CommandState& commands, ToolbarConfig config, QWidget* parent)
    : QToolBar(parent), pConfig(std::move(config)) {
    setObjectName(QStringLiteral("MySampleToolbar"));
    setMovable(false);
    setFloatable(false);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize(QSize(kIconSize, kIconSize));
    MakeActions();
    // The CommandState keeps its listeners for good, so the toolbar's may outlive it.
    QPointer<MainToolBar> self(this);
    commands.AddListener([self](int tag, bool enabled) {
        if (self) self->ToolbarItemEnableSet(tag, enabled);
    });
    pItems = pConfig.Items();
    Rebuild();
    pShown = pConfig.Shown();
    // Only hidden explicitly: a toolbar without a parent yet must not open as a window.
    if (!pShown) hide();
}

void MainToolBar::MakeActions() {
    for (const ToolbarItemRow& entry : ToolbarItems::Table()) {
        QAction* action =
            entry.tag == ToolbarItems::kExport ? MakeExportMenu()->menuAction() : new QAction(this);
        action->setText(QString::fromUtf8(entry.label));
        action->setToolTip(QString::fromUtf8(entry.toolTip));
        action->setIcon(ToolbarIcons::Icon(QString::fromUtf8(entry.iconName)));
        action->setData(entry.tag);
        if (entry.tag != ToolbarItems::kExport) {
            const int tag = entry.tag;
            connect(action, &QAction::triggered, this,
                    [this, tag] { emit ToolbarItemClicked(tag); });
        }
        pActions.insert(entry.tag, action);
    }
}

QMenu* MainToolBar::MakeExportMenu() {
    pExportMenu = new QMenu(this);
    const char* titles[] = {"exif形式", "非圧縮jpeg", "形式を指定"};
    for (int mode = 0; mode < 3; ++mode) {
        QAction* entry = pExportMenu->addAction(QString::fromUtf8(titles[mode]));
        entry->setData(101 + mode);
        connect(entry, &QAction::triggered, this, [this, mode] { emit ExportModeChosen(mode); });
    }
    return pExportMenu;
}

void MainToolBar::SetItems(const std::vector<std::string>& items) {
    pItems = ToolbarItems::CleanSavedList(items);
    Rebuild();
    pConfig.SetItems(pItems);
}

void MainToolBar::Rebuild() {
    clear();
    qDeleteAll(pSpaces);
    pSpaces.clear();
    for (const std::string& identifier : pItems) {
        if (ToolbarItems::IsSpace(identifier)) {
            AddSpace(identifier == ToolbarItems::kFlexibleSpace);
            continue;
        }
        QAction* action = pActions.value(ToolbarItems::FindIdentifier(identifier)->tag);
        addAction(action);
        if (auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
            button && action->menu())
            button->setPopupMode(QToolButton::InstantPopup);
    }
}

void MainToolBar::AddSpace(bool flexible) {
    // The toolbar's extension menu leaves widget actions out, so spaces never show there.
    auto* gap = new QWidget;
    if (flexible)
        gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    else
        gap->setFixedWidth(kSpaceWidth);
    auto* action = new QWidgetAction(this);
    action->setDefaultWidget(gap);
    addAction(action);
    pSpaces.append(action);
}

void MainToolBar::SetToolbarVisible(bool shown) {
    pShown = shown;
    setVisible(shown);
    pConfig.SetShown(shown);
    emit ToolbarVisibilityChanged(shown);
}

void MainToolBar::RunCustomizationDialog(QWidget* parent) {
    auto* dialog = new ToolbarCustomizeDialog(
        pItems, [this](const std::string& id) { return IconFor(id); }, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { SetItems(dialog->Items()); });
    dialog->open();
}

QIcon MainToolBar::IconFor(const std::string& identifier) const {
    if (identifier == ToolbarItems::kSpace)
        return ToolbarIcons::Fallback(QStringLiteral("toolbar-space"));
    if (identifier == ToolbarItems::kFlexibleSpace)
        return ToolbarIcons::Fallback(QStringLiteral("toolbar-flexible-space"));
    const ToolbarItemRow* entry = ToolbarItems::FindIdentifier(identifier);
    return entry ? pActions.value(entry->tag)->icon() : QIcon();
}

void MainToolBar::ToolbarItemEnableSet(int tag, bool enabled) {
    if (QAction* action = pActions.value(tag)) action->setEnabled(enabled);
}

bool MainToolBar::ToolbarMenuAppeared(int tag) const {
    const QToolButton* button = ToolbarItemGetButton(ToolbarItems::ButtonTagFor(tag));
    return button && button->defaultAction()->isEnabled();
}

QToolButton* MainToolBar::ToolbarItemGetButton(int tag) const {
    QAction* action = pActions.value(tag);
    if (!action || !actions().contains(action)) return nullptr;
    return qobject_cast<QToolButton*>(widgetForAction(action));
}

void MainToolBar::SetGoogleEarthFound() {
    pActions.value(606)->setIcon(ToolbarIcons::Globe());
}

}  // namespace lumivex
