#pragma once
// Every question and message the program puts to the user goes through this one interface,
// so that tests can answer them. QtPrompter shows real dialogs; tests script their own.
#include <QColor>
#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace lumivex {

struct CautionRequest {
    int buttons = 1;  // 1: action only; 2: with cancel; 3: with cancel and alternate
    QString action;
    QString cancel;
    QString alternate;
    QString message;
    QString explanation;
};

// A save dialog with a choice of file types: the filters as "NAME (*.a *.b)" lines.
struct SaveRequest {
    QString title;
    QString suggested;  // a path or a bare name
    QStringList filters;
    QString selectedFilter;  // one of the filters; the first when empty
};

struct SaveAnswer {
    QString file;
    QString filter;  // the filter the user left chosen
};

class Prompter {
  public:
    // Caution's results: the action button, cancel (and anything else), the alternate.
    static constexpr int kAction = 2;
    static constexpr int kCancel = 1;
    static constexpr int kAlternate = 0;

    virtual ~Prompter() = default;

    // A caution over `parent` (or free when null). Beeps first when `beep` is set.
    virtual int Caution(QWidget* parent, const CautionRequest& request, bool beep) = 0;
    // A plain message with one button; nothing to answer.
    virtual void Message(QWidget* parent, const QString& text) = 0;
    // A file name to save to, starting at `suggested`; nothing when the user cancels.
    virtual std::optional<QString> SaveFile(QWidget* parent, const QString& title,
                                            const QString& suggested) = 0;
    // The same with file types to choose from. By default the plain SaveFile, with the
    // selected filter kept.
    virtual std::optional<SaveAnswer> SaveFileAs(QWidget* parent, const SaveRequest& request);
    // A folder to write into; nothing when the user cancels.
    virtual std::optional<QString> ChooseFolder(QWidget* parent, const QString& title) = 0;
    // An existing file to open, starting in `folder`; nothing when the user cancels.
    virtual std::optional<QString> OpenFile(QWidget* parent, const QString& title,
                                            const QString& folder) = 0;
    // A colour, starting at `start`, with `caption` as the prompt; nothing when cancelled.
    virtual std::optional<QColor> ChooseColor(QWidget* parent, const QColor& start,
                                              const QString& caption) = 0;

    // A caution with one "OK" button; the result is not used.
    void CautionOk(QWidget* parent, const QString& message, const QString& explanation, bool beep);
};

}  // namespace lumivex
