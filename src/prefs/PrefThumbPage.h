#pragma once
// Page "サムネイル": orientation, files without a thumbnail, extensions in the names.
#include "prefs/PrefPage.h"

namespace lumivex {

class PrefThumbPage : public PrefPage {
  public:
    explicit PrefThumbPage(QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

  private:
    QCheckBox* orientation_;
    QCheckBox* noThumb_;
    QCheckBox* extension_;
};

}  // namespace lumivex
