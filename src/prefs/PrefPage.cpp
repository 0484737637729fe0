#include "prefs/PrefPage.h"

#include <QCheckBox>

namespace lumivex {

QCheckBox* PrefPage::AddCheck(const char* name, const QString& text) {
    auto* box = new QCheckBox(text, this);
    box->setObjectName(QLatin1String(name));
    return box;
}

}  // namespace lumivex
