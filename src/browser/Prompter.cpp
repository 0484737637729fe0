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

std::optional<SaveAnswer> Prompter::SaveFileAs(QWidget* parent, const SaveRequest& request) {
    const auto file = SaveFile(parent, request.title, request.suggested);
    if (!file) return std::nullopt;
    QString filter = request.selectedFilter;
    if (filter.isEmpty() && !request.filters.isEmpty()) filter = request.filters.front();
    return SaveAnswer{*file, filter};
}

}  // namespace lumivex
