#pragma once
// Page "エキスパート": whether expert mode stays on, with its warning.
#include "prefs/PrefPage.h"

namespace lumivex {

class PrefExpertPage : public PrefPage {
  public:
    explicit PrefExpertPage(QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

  private:
    QCheckBox* keep_;
};

}  // namespace lumivex
