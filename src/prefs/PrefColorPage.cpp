#include "prefs/PrefColorPage.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "prefs/ClrCanvas.h"

namespace lumivex {

namespace {

struct Row {
    const char* label;
    const char* canvas;
    const char* reset;
};

// The canvas and button names are those of the controls they replace, in the page's order.
constexpr std::array<Row, 4> kRows{{
    {"リスト領域の背景色：", "Canvas4", "PushButton8"},
    {"サムネイル画面の背景色：", "Canvas1", "PushButton4"},
    {"選択枠の色：", "Canvas2", "PushButton5"},
    {"フォルダ名の色：", "Canvas3", "PushButton7"},
}};

}  // namespace

PrefColorPage::PrefColorPage(Prompter& prompter, const Defaults& defaults, QWidget* parent)
    : PrefPage(parent) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        const int row = static_cast<int>(i);
        auto* label = new QLabel(QString::fromUtf8(kRows[i].label), this);
        auto* swatch = new ClrCanvas(prompter, this);
        swatch->setObjectName(QLatin1String(kRows[i].canvas));
        swatch->setFixedSize(60, 24);
        auto* reset = new QPushButton(QStringLiteral("初期値に戻す"), this);
        reset->setObjectName(QLatin1String(kRows[i].reset));
        reset->setAutoDefault(false);
        // A reset only shows the default; the setting follows on save.
        const std::int64_t value = defaults[i];
        connect(reset, &QPushButton::clicked, swatch, [swatch, value] { swatch->SetClr(value); });
        grid->addWidget(label, row, 0, Qt::AlignRight);
        grid->addWidget(swatch, row, 1);
        grid->addWidget(reset, row, 2);
        swatches_[i] = swatch;
    }
    grid->setColumnStretch(3, 1);
    folderNames_ =
        AddCheck("CheckBox2", QStringLiteral("サムネイルを含むフォルダの名前の色を変える"));
    auto* page = new QVBoxLayout(this);
    page->addLayout(grid);
    page->addSpacing(8);
    page->addWidget(folderNames_);
    page->addStretch(1);
}

void PrefColorPage::Load(const PrefValues& v) {
    swatches_[0]->SetClr(v.listBack);
    swatches_[1]->SetClr(v.thumbBack);
    swatches_[2]->SetClr(v.selection);
    swatches_[3]->SetClr(v.folderName);
    folderNames_->setChecked(v.colorFolderNames);
}

void PrefColorPage::Store(PrefValues& v) const {
    v.listBack = swatches_[0]->Clr();
    v.thumbBack = swatches_[1]->Clr();
    v.selection = swatches_[2]->Clr();
    v.folderName = swatches_[3]->Clr();
    v.colorFolderNames = folderNames_->isChecked();
}

}  // namespace lumivex
