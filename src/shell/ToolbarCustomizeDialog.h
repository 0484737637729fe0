#pragma once
// The toolbar customisation dialog: the items the toolbar allows on the left, the toolbar's
// own items in order on the right, and buttons (or drags) to add, remove and reorder them or
// to go back to the default set. It edits a copy; the caller takes Items() when accepted.
#include <QDialog>
#include <QIcon>
#include <functional>
#include <string>
#include <vector>

#include "model/ToolbarItemList.h"

class QListWidgetItem;
class QPushButton;

namespace lumivex {

class ToolbarItemListWidget;

class ToolbarCustomizeDialog : public QDialog {
    Q_OBJECT

  public:
    using IconSource = std::function<QIcon(const std::string& identifier)>;
    static QString LabelOf(const std::string& identifier);

    ToolbarCustomizeDialog(std::vector<std::string> items, IconSource icons,
                           QWidget* parent = nullptr);

    std::vector<std::string> Items() const { return pList.Items(); }
    ToolbarItemListWidget* AllowedList() const { return pAllowed; }
    ToolbarItemListWidget* CurrentList() const { return pCurrent; }
    QPushButton* AddButton() const { return pAdd; }
    QPushButton* RemoveButton() const { return pRemove; }
    QPushButton* UpButton() const { return pUp; }
    QPushButton* DownButton() const { return pDown; }
    QPushButton* DefaultButton() const { return pDefault; }

  private:
    QWidget* MakeButtons();
    QListWidgetItem* MakeItem(const std::string& identifier) const;
    void FillAllowed();
    void FillCurrent(int select);
    void UpdateButtons();
    void AddSelected();
    void RemoveSelected();
    void MoveSelected(int by);
    void ItemDropped(ToolbarItemListWidget* target, const QString& from, int row,
                     const QString& identifier, int at);

    ToolbarItemList pList;
    IconSource pIcons;
    ToolbarItemListWidget* pAllowed = nullptr;
    ToolbarItemListWidget* pCurrent = nullptr;
    QPushButton* pAdd = nullptr;
    QPushButton* pRemove = nullptr;
    QPushButton* pUp = nullptr;
    QPushButton* pDown = nullptr;
    QPushButton* pDefault = nullptr;
};

}  // namespace lumivex
