#pragma once
// A prompter that records every question and answers from a script, for widget tests.
#include <QStringList>
#include <deque>

#include "browser/Prompter.h"

namespace lumivex {

class ScriptedPrompter : public Prompter {
  public:
    int Caution(QWidget*, const CautionRequest& request, bool) override {
        asked << request.message;
        if (answers.empty()) return kCancel;
        const int a = answers.front();
        answers.pop_front();
        return a;
    }
    void Message(QWidget*, const QString& text) override { asked << text; }
    std::optional<QString> SaveFile(QWidget*, const QString& title, const QString&) override {
        asked << title;
        return files.empty() ? std::nullopt : std::optional<QString>(files.front());
    }
    std::optional<SaveAnswer> SaveFileAs(QWidget*, const SaveRequest& request) override {
        asked << request.title;
        filtersOffered = request.filters;
        if (files.empty()) return std::nullopt;
        QString filter = filterAnswer.isEmpty() ? request.selectedFilter : filterAnswer;
        if (filter.isEmpty() && !request.filters.isEmpty()) filter = request.filters.front();
        return SaveAnswer{files.front(), filter};
    }
    std::optional<QString> ChooseFolder(QWidget*, const QString& title) override {
        asked << title;
        return files.empty() ? std::nullopt : std::optional<QString>(files.front());
    }

    std::optional<QString> OpenFile(QWidget*, const QString& title, const QString&) override {
        asked << title;
        return files.empty() ? std::nullopt : std::optional<QString>(files.front());
    }
    std::optional<QColor> ChooseColor(QWidget*, const QColor& start,
                                      const QString& caption) override {
        asked << caption;
        colorsOffered << start;
        if (colors.empty()) return std::nullopt;
        const QColor c = colors.front();
        colors.pop_front();
        return c;
    }

    QStringList asked;            // every message and title, in order
    std::deque<int> answers;      // results of Caution, in order; cancel when empty
    QStringList files;            // the answer of the file and folder choosers
    QString filterAnswer;         // the file type a save dialog answers; its own choice when empty
    QStringList filtersOffered;   // the file types of the last save dialog
    std::deque<QColor> colors;    // answers of the colour picker, in order; cancel when empty
    QList<QColor> colorsOffered;  // the colour each picker started from
};

}  // namespace lumivex
