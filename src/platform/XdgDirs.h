#pragma once
// The user's folders as the XDG base-directory and user-dirs conventions place them.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace lumivex::XdgDirs {

// $HOME, else the home folder of the process's user; empty when neither is known.
std::filesystem::path Home();
// $XDG_CONFIG_HOME when it is an absolute path, else ~/.config.
std::filesystem::path ConfigHome();

// The folder that user-dirs.dirs text gives for `key` (such as "XDG_DESKTOP_DIR"), with
// "$HOME" expanded. Nothing when the key is missing or malformed; an empty path when it names
// the home folder itself, which the convention uses to switch a folder off.
std::optional<std::filesystem::path> ParseUserDir(std::string_view text, std::string_view key,
                                                  const std::filesystem::path& home);

// The user's Desktop folder: XDG_DESKTOP_DIR of ConfigHome()/user-dirs.dirs, else
// ~/Desktop. Empty when that folder is switched off or does not exist.
std::filesystem::path DesktopDir();

}  // namespace lumivex::XdgDirs
