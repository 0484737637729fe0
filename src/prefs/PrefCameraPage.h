#pragma once
// Page "カメラ": open a camera card at once, eject it at quit.
#include "prefs/PrefPage.h"

namespace lumivex {

class PrefCameraPage : public PrefPage {
  public:
    explicit PrefCameraPage(QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

  private:
    QCheckBox* detect_;
    QCheckBox* eject_;
};

}  // namespace lumivex
