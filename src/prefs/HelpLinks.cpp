#include "prefs/HelpLinks.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <system_error>

#include "browser/Prompter.h"

namespace lumivex {

HelpLinks::HelpLinks(std::filesystem::path shareFolder, Prompter& prompter, UrlOpener opener)
    : share_(std::move(shareFolder)), prompter_(prompter), opener_(std::move(opener)) {}

HelpLinks HelpLinks::System(Prompter& prompter) {
    const std::filesystem::path exeDir = QCoreApplication::applicationDirPath().toStdString();
    return HelpLinks(ShareFolderOf(exeDir), prompter,
                     [](const QUrl& url) { return QDesktopServices::openUrl(url); });
}

std::filesystem::path HelpLinks::ShareFolderOf(const std::filesystem::path& programDir) {
    return (programDir / ".." / "share" / "lumivex-plus").lexically_normal();
}

std::filesystem::path HelpLinks::HelpIndex() const {
    return share_ / "help" / "index.html";
}

std::filesystem::path HelpLinks::Readme() const {
    return share_ /
           std::filesystem::path(std::u8string(reinterpret_cast<const char8_t*>(kReadmeName)));
}

bool HelpLinks::_HelpHelpbook_Action(QWidget* parent) {
    return OpenFile(parent, HelpIndex());
}

bool HelpLinks::_HelpReadme_Action(QWidget* parent) {
    return OpenFile(parent, Readme());
}

bool HelpLinks::ConnectHP(QWidget* parent, bool beep) {
    CautionRequest r;
    r.buttons = 2;
    r.action = QStringLiteral("接続する");
    r.cancel = QStringLiteral("キャンセル");
    r.message = QStringLiteral("Lumivexのホームページに接続しますか？");
    r.explanation = QStringLiteral("ブラウザを起動して、") + QString::fromLatin1(kHomePage) +
                    QStringLiteral(" にアクセスします。");
    if (prompter_.Caution(parent, r, beep) != Prompter::kAction) return false;
    return opener_(QUrl(QString::fromLatin1(kHomePage)));
}

bool HelpLinks::OpenFile(QWidget* parent, const std::filesystem::path& file) {
    std::error_code ec;
    if (!std::filesystem::is_regular_file(file, ec)) {
        prompter_.Message(parent, QString::fromLatin1(kNotFound));
        return false;
    }
    return opener_(QUrl::fromLocalFile(QString::fromStdString(file.string())));
}

}  // namespace lumivex
