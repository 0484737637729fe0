#include "prefs/PrefExpertPage.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>

namespace lumivex {

PrefExpertPage::PrefExpertPage(QWidget* parent)
    : PrefPage(parent),
      keep_(AddCheck("CheckBox5", QStringLiteral("エキスパートモードを保持する"))) {
    auto* warning = new QLabel(QStringLiteral("警告：\nエキスパートモードは保守用のものです。\n"
                                              "本機能はサポート対象外です。"),
                               this);
    auto* page = new QVBoxLayout(this);
    page->addWidget(keep_);
    page->addSpacing(8);
    page->addWidget(warning);
    page->addStretch(1);
}

void PrefExpertPage::Load(const PrefValues& v) {
    keep_->setChecked(v.keepExpert);
}

void PrefExpertPage::Store(PrefValues& v) const {
    v.keepExpert = keep_->isChecked();
}

}  // namespace lumivex
