#pragma once
// A menu made from its item texts in order; "-" stands for a separator. Nullptr for none.
#include <string>
#include <vector>

class QMenu;
class QWidget;

namespace lumivex {

QMenu* MenuOfTexts(const std::vector<std::string>& texts, QWidget* parent);

}  // namespace lumivex
