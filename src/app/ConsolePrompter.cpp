#include "app/ConsolePrompter.h"

#include <QGuiApplication>
#include <string>

namespace lumivex {

int ConsolePrompter::Caution(QWidget*, const CautionRequest& request, bool) {
    Say(request.explanation.isEmpty() ? request.message
                                      : request.message + QLatin1Char(' ') + request.explanation);
    return kCancel;
}

void ConsolePrompter::Message(QWidget*, const QString& text) {
    Say(text);
}

std::optional<QString> ConsolePrompter::SaveFile(QWidget*, const QString& title,
                                                 const QString& suggested) {
    return Ask(title.isEmpty() ? QStringLiteral("保存するファイル（%1）: ").arg(suggested)
                               : title + QStringLiteral(": "));
}

std::optional<QString> ConsolePrompter::ChooseFolder(QWidget*, const QString& title) {
    return Ask(title.isEmpty() ? QStringLiteral("書き出し先のフォルダ: ")
                               : title + QStringLiteral(": "));
}

std::optional<QString> ConsolePrompter::OpenFile(QWidget*, const QString& title,
                                                 const QString& folder) {
    return Ask(title + QStringLiteral(" (") + folder + QStringLiteral("): "));
}

std::optional<QColor> ConsolePrompter::ChooseColor(QWidget*, const QColor& start,
                                                   const QString& caption) {
    const auto text = Ask(caption + QStringLiteral(" (") + start.name() + QStringLiteral("): "));
    if (!text) return std::nullopt;
    const QColor c = QColor::fromString(text->trimmed());
    if (!c.isValid()) return std::nullopt;
    return c;
}

bool ConsolePrompter::PlatformHasNoScreen() {
    const QString p = QGuiApplication::platformName();
    return p == QLatin1String("offscreen") || p == QLatin1String("minimal");
}

void ConsolePrompter::Say(const QString& text) {
    std::fprintf(err_, "lumivex-plus: %s\n", text.toUtf8().constData());
    std::fflush(err_);
}

std::optional<QString> ConsolePrompter::Ask(const QString& question) {
    std::fputs(question.toUtf8().constData(), err_);
    std::fflush(err_);
    std::string line;
    for (int c = std::fgetc(in_); c != EOF && c != '\n'; c = std::fgetc(in_))
        line.push_back(static_cast<char>(c));
    if (line.empty()) return std::nullopt;
    return QString::fromStdString(line);
}

}  // namespace lumivex
