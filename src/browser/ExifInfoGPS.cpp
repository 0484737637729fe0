#include "browser/ExifInfoGPS.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "browser/Prompter.h"
#include "exif/ExifReader.h"

namespace lumivex {
namespace {

constexpr int kWidth = 550;
constexpr int kHeight = 470;

QTableWidgetItem* Cell(const std::string& text, Qt::Alignment align, bool bold) {
    auto* item = new QTableWidgetItem(QString::fromStdString(text));
    item->setTextAlignment(align | Qt::AlignVCenter);
    if (bold) {
        QFont font = item->font();
        font.setBold(true);
        item->setFont(font);
    }
    // Long values (a user comment) are cut at the column's edge; the tip shows them whole.
    if (!text.empty()) item->setToolTip(item->text());
    return item;
}

}  // namespace

ExifInfoGPS* ExifInfoGPS::SelFileExifGPS(QWidget* parent, Prompter& prompter,
                                         const std::filesystem::path& path, bool beep) {
    ExifReader x;
    x.fitem = path;
    x.GetExif();
    if (!x.ret) {
        prompter.CautionOk(parent, QStringLiteral("このファイルにはExif情報が含まれていません。"),
                           QString(), beep);
        return nullptr;
    }
    auto* dialog = new ExifInfoGPS(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->SetFileName(QFile::decodeName(path.filename().native().c_str()));
    dialog->Fill(0, ExifInfoRows::SelFileExif21(x));
    dialog->Fill(1, ExifInfoRows::SelFileExif22(x));
    dialog->Fill(2, ExifInfoRows::SelFileExif23(x));
    dialog->Fill(3, ExifInfoRows::SelFileExif24(x));
    dialog->open();  // window-modal: the main window waits, the caller does not
    return dialog;
}

ExifInfoGPS::ExifInfoGPS(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowTitle(QStringLiteral("Exif情報"));
    setFixedSize(kWidth, kHeight);

    StaticText2 = new QLabel(this);
    StaticText2->setGeometry(20, 6, 510, 20);
    StaticText2->setAlignment(Qt::AlignCenter);

    TabPanel1 = new QTabWidget(this);
    TabPanel1->setGeometry(10, 30, 530, 362);
    TabPanel1->setStyleSheet(QStringLiteral("QTabWidget::tab-bar { alignment: center; }"));
    const char* titles[] = {"Exif 概要", "TIFF 詳細", "Exif IFD 詳細", "GPS IFD 詳細"};
    for (std::size_t i = 0; i < lists_.size(); ++i) {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        layout->setContentsMargins(8, 8, 8, 8);
        lists_[i] = MakeList();
        layout->addWidget(lists_[i]);
        TabPanel1->addTab(page, QString::fromUtf8(titles[i]));
    }

    StaticText1 = new QLabel(
        QStringLiteral("注）Exif情報は画像ファイル全体に対するもので、サムネイルに限定されるもので"
                       "はありません。"),
        this);
    // Linux fonts are wider than the note's room: it may take two lines, and it stays smaller
    // than the lists' type even where the desktop's font is small.
    StaticText1->setGeometry(20, 394, 510, 36);
    StaticText1->setAlignment(Qt::AlignCenter);
    StaticText1->setWordWrap(true);
    QFont small = StaticText1->font();
    small.setPointSizeF(std::min(10.0, small.pointSizeF() - 1.0));
    StaticText1->setFont(small);
    QPalette grey = StaticText1->palette();
    grey.setColor(QPalette::WindowText, QColor(62, 62, 62));
    StaticText1->setPalette(grey);

    PushButton1 = new QPushButton(QStringLiteral("閉じる"), this);
    PushButton1->setGeometry(446, 434, 84, 28);
    PushButton1->setDefault(true);
    connect(PushButton1, &QPushButton::clicked, this, &QDialog::close);

    AddEditActions();
}

QTableWidget* ExifInfoGPS::MakeList() {
    auto* list = new QTableWidget(0, 2);
    list->horizontalHeader()->hide();
    list->verticalHeader()->hide();
    list->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    list->verticalHeader()->setDefaultSectionSize(list->fontMetrics().height() + 6);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setShowGrid(false);
    list->setWordWrap(false);
    return list;
}

// The window's own shortcuts, so that Ctrl+C and Ctrl+A take all four lists, not only the
// list that has the focus.
void ExifInfoGPS::AddEditActions() {
    auto* copy = new QAction(this);
    copy->setShortcut(QKeySequence::Copy);
    connect(copy, &QAction::triggered, this, &ExifInfoGPS::CopyString);
    auto* selectAll = new QAction(this);
    selectAll->setShortcut(QKeySequence::SelectAll);
    connect(selectAll, &QAction::triggered, this, &ExifInfoGPS::SelectAllList);
    addActions({copy, selectAll});
}

void ExifInfoGPS::SetFileName(const QString& name) {
    StaticText2->setText(name);
}

void ExifInfoGPS::Fill(int list, const ExifInfoList& rows) {
    QTableWidget* table = ListBox(list);
    rows_[static_cast<std::size_t>(list)] = rows;
    table->clearContents();
    table->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < table->rowCount(); ++r) {
        const ExifInfoRow& row = rows[static_cast<std::size_t>(r)];
        table->setItem(r, 0, Cell(row.label, Qt::AlignRight, false));
        table->setItem(r, 1, Cell(row.value, Qt::AlignLeft, row.present));
    }
}

void ExifInfoGPS::CopyString() {
    QString text;
    for (int list = 0; list < ExifInfoRows::kLists; ++list)
        text += CopyString2(list);
    if (text.isEmpty()) return;
    QGuiApplication::clipboard()->setText(text);
}

QString ExifInfoGPS::CopyString2(int list) const {
    const QTableWidget* table = ListBox(list);
    std::vector<bool> selected(static_cast<std::size_t>(table->rowCount()));
    for (int r = 0; r < table->rowCount(); ++r)
        selected[static_cast<std::size_t>(r)] = table->selectionModel()->isRowSelected(r);
    return QString::fromStdString(
        ExifInfoRows::CopyString2(rows_[static_cast<std::size_t>(list)], selected));
}

void ExifInfoGPS::SelectAllList() {
    for (int list = 0; list < ExifInfoRows::kLists; ++list)
        SelectAllList2(list);
}

void ExifInfoGPS::SelectAllList2(int list) {
    ListBox(list)->selectAll();
}

}  // namespace lumivex
