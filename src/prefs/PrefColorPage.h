#pragma once
// Page "カラー": the four colours with their reset buttons, and the folder-name switch.
#include <array>
#include <cstdint>

#include "prefs/PrefPage.h"

class QCheckBox;

namespace lumivex {

class ClrCanvas;
class Prompter;

class PrefColorPage : public PrefPage {
  public:
    // What the four reset buttons give, in the order of the page's rows: list background,
    // thumbnail background, selection frame, folder names.
    using Defaults = std::array<std::int64_t, 4>;

    PrefColorPage(Prompter& prompter, const Defaults& defaults, QWidget* parent = nullptr);
    void Load(const PrefValues& v) override;
    void Store(PrefValues& v) const override;

  private:
    std::array<ClrCanvas*, 4> swatches_{};
    QCheckBox* folderNames_ = nullptr;
};

}  // namespace lumivex
