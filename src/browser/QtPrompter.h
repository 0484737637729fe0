#pragma once
// The real dialogs: window-modal message boxes and the platform's file and folder choosers.
#include "browser/Prompter.h"

namespace lumivex {

class QtPrompter : public Prompter {
  public:
    int Caution(QWidget* parent, const CautionRequest& request, bool beep) override;
    void Message(QWidget* parent, const QString& text) override;
    std::optional<QString> SaveFile(QWidget* parent, const QString& title,
                                    const QString& suggested) override;
    std::optional<SaveAnswer> SaveFileAs(QWidget* parent, const SaveRequest& request) override;
    std::optional<QString> ChooseFolder(QWidget* parent, const QString& title) override;
    std::optional<QString> OpenFile(QWidget* parent, const QString& title,
                                    const QString& folder) override;
    std::optional<QColor> ChooseColor(QWidget* parent, const QColor& start,
                                      const QString& caption) override;
};

}  // namespace lumivex
