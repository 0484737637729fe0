#include "platform/XdgDirs.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <system_error>

#include "core/FileServices.h"

namespace lumivex::XdgDirs {
namespace {

namespace fs = std::filesystem;

std::string_view TrimBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
        s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

// The inside of a double-quoted shell word, with its backslash escapes undone.
std::optional<std::string> Unquote(std::string_view value) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::nullopt;
    value = value.substr(1, value.size() - 2);
    std::string out;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == '\\' && i + 1 < value.size()) ++i;
        out.push_back(value[i]);
    }
    return out;
}

// "$HOME" or "$HOME/..." expanded, or an absolute path; anything else is not accepted.
fs::path Expand(const std::string& value, const fs::path& home) {
    if (value == "$HOME" || value.starts_with("$HOME/")) {
        if (home.empty()) return {};
        return (home / value.substr(std::min<std::size_t>(value.size(), 6))).lexically_normal();
    }
    if (value.starts_with("/")) return fs::path(value).lexically_normal();
    return {};
}

fs::path WithoutTrailingSlash(fs::path p) {
    if (!p.empty() && !p.has_filename() && p != p.root_path()) p = p.parent_path();
    return p;
}

}  // namespace

fs::path Home() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') return home;
    if (const passwd* pw = ::getpwuid(::geteuid()); pw != nullptr && pw->pw_dir != nullptr)
        return pw->pw_dir;
    return {};
}

fs::path ConfigHome() {
    if (const char* c = std::getenv("XDG_CONFIG_HOME"); c != nullptr && *c == '/') return c;
    const fs::path home = Home();
    return home.empty() ? fs::path() : home / ".config";
}

std::optional<fs::path> ParseUserDir(std::string_view text, std::string_view key,
                                     const fs::path& home) {
    std::optional<fs::path> result;
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t end = std::min(text.find('\n', pos), text.size());
        const std::string_view line = TrimBlanks(text.substr(pos, end - pos));
        pos = end + 1;
        if (!line.starts_with(key) || line.substr(key.size()).find('=') != 0) continue;
        const auto value = Unquote(TrimBlanks(line.substr(key.size() + 1)));
        // The last assignment wins, as when the file is sourced by a shell.
        const fs::path path = value ? WithoutTrailingSlash(Expand(*value, home)) : fs::path();
        result = path.empty() ? std::nullopt : std::optional<fs::path>(path);
    }
    if (result && !home.empty() && *result == WithoutTrailingSlash(home.lexically_normal()))
        return fs::path();
    return result;
}

fs::path DesktopDir() {
    const fs::path home = Home();
    std::optional<fs::path> chosen;
    std::string text;
    const fs::path config = ConfigHome();
    if (!config.empty() && gReadFileHead(config / "user-dirs.dirs", kSmallFileLimit, text) == 0)
        chosen = ParseUserDir(text, "XDG_DESKTOP_DIR", home);
    const fs::path desktop = chosen ? *chosen : home.empty() ? fs::path() : home / "Desktop";
    std::error_code ec;
    return !desktop.empty() && fs::is_directory(desktop, ec) ? desktop : fs::path();
}

}  // namespace lumivex::XdgDirs
