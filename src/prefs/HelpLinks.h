#pragma once
// The Help menu's openers: the HTML help and the read-me from the program's share folder, and
// the maker's home page after a question. Where the files lie and how a URL is opened are
// given, so that tests see what would be opened without starting a browser.
#include <QUrl>
#include <filesystem>
#include <functional>

class QWidget;

namespace lumivex {

class Prompter;

class HelpLinks {
  public:
    static constexpr const char* kHomePage = "https://www.zenmoraworks.jp/lumivex/";
    static constexpr const char* kReadmeName = "お読み下さい.html";
    static constexpr const char* kNotFound = "File Not Found.";

    using UrlOpener = std::function<bool(const QUrl&)>;

    HelpLinks(std::filesystem::path shareFolder, Prompter& prompter, UrlOpener opener);
    // <folder of the program>/../share/lumivex-plus, which holds in the build tree and once
    // installed; QDesktopServices opens the URLs.
    static HelpLinks System(Prompter& prompter);
    // The share folder of a program that lies in `programDir`.
    static std::filesystem::path ShareFolderOf(const std::filesystem::path& programDir);

    std::filesystem::path HelpIndex() const;
    std::filesystem::path Readme() const;

    // Each opens its file with the desktop's default application; a missing file is said.
    bool _HelpHelpbook_Action(QWidget* parent);
    bool _HelpReadme_Action(QWidget* parent);
    // Asks first; opens the home page only when the user agrees. `beep` is gPref(10).
    bool ConnectHP(QWidget* parent, bool beep);

  private:
    bool OpenFile(QWidget* parent, const std::filesystem::path& file);

    std::filesystem::path share_;
    Prompter& prompter_;
    UrlOpener opener_;
};

}  // namespace lumivex
