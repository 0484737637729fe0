#include "browser/Prompter.h"

namespace lumivex {

void Prompter::CautionOk(QWidget* parent, const QString& message, const QString& explanation,
                         bool beep) {
    CautionRequest r;
    r.buttons = 1;
    r.action = QStringLiteral("OK");
    r.message = message;
    r.explanation = explanation;
    Caution(parent, r, beep);
}

}  // namespace lumivex
