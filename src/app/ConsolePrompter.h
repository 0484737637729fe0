#pragma once
// The prompter of a platform without a screen (Qt's offscreen and minimal platforms), where a
// dialog would wait for an answer that nobody can give. Messages and cautions go to the error
// stream, and a caution is answered "cancel". A folder or a file name is asked for on the
// error stream and read as one line from `in`; an empty line or the end of the input cancels,
// as the dialog's cancel button would.
#include <cstdio>

#include "browser/Prompter.h"

namespace lumivex {

class ConsolePrompter : public Prompter {
  public:
    explicit ConsolePrompter(std::FILE* in = stdin, std::FILE* err = stderr) : in_(in), err_(err) {}

    int Caution(QWidget* parent, const CautionRequest& request, bool beep) override;
    void Message(QWidget* parent, const QString& text) override;
    std::optional<QString> SaveFile(QWidget* parent, const QString& title,
                                    const QString& suggested) override;
    std::optional<QString> ChooseFolder(QWidget* parent, const QString& title) override;
    std::optional<QString> OpenFile(QWidget* parent, const QString& title,
                                    const QString& folder) override;
    // Read as a colour name ("#RRGGBB" or an SVG name); one that is not a colour cancels.
    std::optional<QColor> ChooseColor(QWidget* parent, const QColor& start,
                                      const QString& caption) override;

    // True when the platform that QGuiApplication runs on shows nothing to a user.
    static bool PlatformHasNoScreen();

  private:
    void Say(const QString& text);
    std::optional<QString> Ask(const QString& question);

    std::FILE* in_;
    std::FILE* err_;
};

}  // namespace lumivex
