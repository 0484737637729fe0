#include "prefs/PrefCameraPage.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace lumivex {

PrefCameraPage::PrefCameraPage(QWidget* parent)
    : PrefPage(parent),
      detect_(AddCheck("CheckBox8", QStringLiteral("カメラを検出して、直ちにサムネイル表示する"))),
      eject_(
          AddCheck("CheckBox9", QStringLiteral("終了時、カメラを取り出す（アンマウントする）"))) {
    auto* page = new QVBoxLayout(this);
    page->addWidget(detect_);
    page->addWidget(eject_);
    page->addStretch(1);
}

void PrefCameraPage::Load(const PrefValues& v) {
    detect_->setChecked(v.detectCamera);
    eject_->setChecked(v.ejectAtQuit);
}

void PrefCameraPage::Store(PrefValues& v) const {
    v.detectCamera = detect_->isChecked();
    v.ejectAtQuit = eject_->isChecked();
}

}  // namespace lumivex
