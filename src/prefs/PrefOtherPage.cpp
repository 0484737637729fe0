#include "prefs/PrefOtherPage.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace lumivex {

PrefOtherPage::PrefOtherPage(QWidget* parent)
    : PrefPage(parent),
      radios_{new QRadioButton(QStringLiteral("システムとTime Machineを除外")),
              new QRadioButton(QStringLiteral("システムを除外")),
              new QRadioButton(QStringLiteral("全て"))},
      beep_(AddCheck("CheckBox1", QStringLiteral("警告ダイアログ表示時、ビープ音を鳴らす"))) {
    auto* group = new QGroupBox(QStringLiteral("フォルダーリストに表示するボリューム"), this);
    auto* column = new QVBoxLayout(group);
    for (int i = 0; i < 3; ++i) {
        radios_[i]->setObjectName(QStringLiteral("RadioButton%1").arg(i + 1));
        column->addWidget(radios_[i]);
    }
    auto* page = new QVBoxLayout(this);
    page->addWidget(group);
    page->addSpacing(8);
    page->addWidget(beep_);
    page->addStretch(1);
}

void PrefOtherPage::Load(const PrefValues& v) {
    radios_[PrefValues::VolumeChoice(v.volumeMode)]->setChecked(true);
    beep_->setChecked(v.beep);
}

void PrefOtherPage::Store(PrefValues& v) const {
    v.volumeMode = radios_[1]->isChecked() ? 1 : radios_[2]->isChecked() ? 2 : 0;
    v.beep = beep_->isChecked();
}

}  // namespace lumivex
