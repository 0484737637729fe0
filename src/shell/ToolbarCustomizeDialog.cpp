#include "shell/ToolbarCustomizeDialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "model/ToolbarItems.h"
#include "shell/ToolbarItemListWidget.h"

namespace lumivex {

namespace {
const QString kAllowedName = QStringLiteral("allowed");
const QString kCurrentName = QStringLiteral("current");

QWidget* Column(const QString& title, QWidget* list) {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(title));
    layout->addWidget(list);
    return column;
}
}  // namespace

QString ToolbarCustomizeDialog::LabelOf(const std::string& identifier) {
    if (identifier == ToolbarItems::kSpace) return QStringLiteral("スペース");
    if (identifier == ToolbarItems::kFlexibleSpace) return QStringLiteral("フレキシブルスペース");
    const ToolbarItemRow* entry = ToolbarItems::FindIdentifier(identifier);
    return entry ? QString::fromUtf8(entry->label) : QString();
}

ToolbarCustomizeDialog::ToolbarCustomizeDialog(std::vector<std::string> items, IconSource icons,
                                               QWidget* parent)
    : QDialog(parent), pList(std::move(items)), pIcons(std::move(icons)) {
    setWindowTitle(QStringLiteral("ツールバーをカスタマイズ"));
    pAllowed = new ToolbarItemListWidget(kAllowedName);
    pCurrent = new ToolbarItemListWidget(kCurrentName);
    // Room for every allowed item without scrolling.
    for (ToolbarItemListWidget* list : {pAllowed, pCurrent})
        list->setMinimumSize(220, 300);
    for (ToolbarItemListWidget* list : {pAllowed, pCurrent})
        connect(list, &ToolbarItemListWidget::ItemDropped, this,
                [this, list](const QString& from, int row, const QString& id, int at) {
                    ItemDropped(list, from, row, id, at);
                });
    auto* lists = new QHBoxLayout;
    lists->addWidget(Column(QStringLiteral("使用できる項目"), pAllowed));
    lists->addWidget(MakeButtons());
    lists->addWidget(Column(QStringLiteral("ツールバーの項目（左から順に）"), pCurrent));
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    box->button(QDialogButtonBox::Ok)->setText(QStringLiteral("OK"));
    box->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("キャンセル"));
    connect(box, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lists);
    layout->addWidget(
        new QLabel(QStringLiteral("項目はドラッグでも追加・削除・並べ替えができます。")));
    layout->addWidget(box);
    FillAllowed();
    FillCurrent(-1);
    connect(pAllowed, &QListWidget::currentRowChanged, this, [this] { UpdateButtons(); });
    connect(pCurrent, &QListWidget::currentRowChanged, this, [this] { UpdateButtons(); });
    UpdateButtons();
}

QWidget* ToolbarCustomizeDialog::MakeButtons() {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    pAdd = new QPushButton(QStringLiteral("追加 →"));
    pRemove = new QPushButton(QStringLiteral("← 削除"));
    pUp = new QPushButton(QStringLiteral("上へ"));
    pDown = new QPushButton(QStringLiteral("下へ"));
    pDefault = new QPushButton(QStringLiteral("デフォルトセット"));
    layout->addStretch();
    for (QPushButton* button : {pAdd, pRemove, pUp, pDown})
        layout->addWidget(button);
    layout->addSpacing(16);
    layout->addWidget(pDefault);
    layout->addStretch();
    connect(pAdd, &QPushButton::clicked, this, [this] { AddSelected(); });
    connect(pRemove, &QPushButton::clicked, this, [this] { RemoveSelected(); });
    connect(pUp, &QPushButton::clicked, this, [this] { MoveSelected(-1); });
    connect(pDown, &QPushButton::clicked, this, [this] { MoveSelected(1); });
    connect(pDefault, &QPushButton::clicked, this, [this] {
        pList.ResetToDefault();
        FillCurrent(-1);
    });
    return column;
}

QListWidgetItem* ToolbarCustomizeDialog::MakeItem(const std::string& identifier) const {
    auto* item = new QListWidgetItem(pIcons ? pIcons(identifier) : QIcon(), LabelOf(identifier));
    item->setData(ToolbarItemListWidget::kIdentifierRole, QString::fromStdString(identifier));
    return item;
}

void ToolbarCustomizeDialog::FillAllowed() {
    for (const std::string& identifier : ToolbarItems::AllowedItemIdentifiers())
        pAllowed->addItem(MakeItem(identifier));
}

void ToolbarCustomizeDialog::FillCurrent(int select) {
    pCurrent->clear();
    for (const std::string& identifier : pList.Items())
        pCurrent->addItem(MakeItem(identifier));
    pCurrent->setCurrentRow(select);
    UpdateButtons();
}

void ToolbarCustomizeDialog::UpdateButtons() {
    const int row = pCurrent->currentRow();
    pAdd->setEnabled(pAllowed->currentRow() >= 0);
    pRemove->setEnabled(row >= 0);
    pUp->setEnabled(row > 0);
    pDown->setEnabled(row >= 0 && row + 1 < pCurrent->count());
}

void ToolbarCustomizeDialog::AddSelected() {
    const QListWidgetItem* item = pAllowed->currentItem();
    if (!item) return;
    // Behind the selected toolbar item, else at the end.
    const int row = pCurrent->currentRow();
    const int at = row >= 0 ? row + 1 : pCurrent->count();
    const std::string id =
        item->data(ToolbarItemListWidget::kIdentifierRole).toString().toStdString();
    FillCurrent(pList.Add(id, at));
}

void ToolbarCustomizeDialog::RemoveSelected() {
    const int row = pCurrent->currentRow();
    if (row < 0) return;
    pList.Remove(row);
    FillCurrent(std::min(row, static_cast<int>(pList.Items().size()) - 1));
}

void ToolbarCustomizeDialog::MoveSelected(int by) {
    const int row = pCurrent->currentRow();
    if (row < 0) return;
    FillCurrent(pList.Move(row, row + by));
}

void ToolbarCustomizeDialog::ItemDropped(ToolbarItemListWidget* target, const QString& from,
                                         int row, const QString& identifier, int at) {
    if (target == pCurrent && from == kAllowedName) {
        FillCurrent(pList.Add(identifier.toStdString(), at));
    } else if (target == pCurrent && from == kCurrentName) {
        FillCurrent(pList.Move(row, at > row ? at - 1 : at));
    } else if (target == pAllowed && from == kCurrentName) {
        // Dragged off the toolbar, as one takes an item off a toolbar.
        pList.Remove(row);
        FillCurrent(-1);
    }
}

}  // namespace lumivex
