#include "prefs/PrefThumbPage.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace lumivex {

PrefThumbPage::PrefThumbPage(QWidget* parent)
    : PrefPage(parent),
      orientation_(AddCheck("CheckBox3",
                            QStringLiteral("Exif情報に画像の方向が含まれていれば、それに従う"))),
      noThumb_(AddCheck("CheckBox6",
                        QStringLiteral("Exif情報があれば、サムネイルがなくても表示対象にする"))),
      extension_(AddCheck("CheckBox10",
                          QStringLiteral("サムネイルと共に表示するファイル名に、拡張子を含める"))) {
    auto* page = new QVBoxLayout(this);
    page->addWidget(orientation_);
    page->addWidget(noThumb_);
    page->addWidget(extension_);
    page->addStretch(1);
}

void PrefThumbPage::Load(const PrefValues& v) {
    orientation_->setChecked(v.followOrientation);
    noThumb_->setChecked(v.listNoThumb);
    extension_->setChecked(v.showExtension);
}

void PrefThumbPage::Store(PrefValues& v) const {
    v.followOrientation = orientation_->isChecked();
    v.listNoThumb = noThumb_->isChecked();
    v.showExtension = extension_->isChecked();
}

}  // namespace lumivex
