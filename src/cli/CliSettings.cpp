#include "cli/CliSettings.h"

#include <filesystem>

#include "core/PrefFile.h"

namespace lumivex {

Settings CliSettings::Load() {
    Settings s;
    s.InitAll();
    const auto folder = PrefFile::DefaultFolder();
    std::error_code ec;
    if (!folder.empty() && std::filesystem::is_regular_file(folder / PrefFile::kFileName, ec))
        PrefFile::LoadPref(s, folder);
    return s;
}

}  // namespace lumivex
