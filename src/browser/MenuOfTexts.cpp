#include "browser/MenuOfTexts.h"

#include <QMenu>

#include "model/ContextMenuItems.h"

namespace lumivex {

QMenu* MenuOfTexts(const std::vector<std::string>& texts, QWidget* parent) {
    if (texts.empty()) return nullptr;
    auto* menu = new QMenu(parent);
    for (const auto& text : texts) {
        if (text == menutext::kSeparator)
            menu->addSeparator();
        else
            menu->addAction(QString::fromStdString(text));
    }
    return menu;
}

}  // namespace lumivex
