#pragma once
// Page "その他": which volumes the folder list shows, and the caution beep.
#include "prefs/PrefPage.h"

class QRadioButton;

namespace lumivex {

class PrefOtherPage : public PrefPage {
  public:
    explicit PrefOtherPage(QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

  private:
    QRadioButton* radios_[3];
    QCheckBox* beep_;
};

}  // namespace lumivex
