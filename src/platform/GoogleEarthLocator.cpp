#include "platform/GoogleEarthLocator.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace lumivex {

namespace {

namespace fs = std::filesystem;

bool IsExecutableFile(const fs::path& file) {
    std::error_code ec;
    return fs::is_regular_file(file, ec) && ::access(file.c_str(), X_OK) == 0;
}

}  // namespace

GoogleEarthLocator::GoogleEarthLocator(fs::path installRoot, std::string searchPath)
    : root_(std::move(installRoot)), path_(std::move(searchPath)) {}

GoogleEarthLocator GoogleEarthLocator::System() {
    const char* path = std::getenv("PATH");
    return GoogleEarthLocator("/opt/google/earth", path ? path : "");
}

int GoogleEarthLocator::GetGoogleEarthChk(const fs::path& item) const {
    if (item.empty() || !IsExecutableFile(item)) return kNone;
    std::error_code ec;
    const fs::path folder = fs::canonical(item, ec).parent_path();
    if (ec || !fs::is_regular_file(folder / "googleearth-bin", ec)) return kNone;
    const fs::path free = fs::weakly_canonical(root_ / "free", ec);
    return !ec && folder == free ? kScript : kKml;
}

fs::path GoogleEarthLocator::Find(const std::string& appPath, const std::string& oldAppPath) const {
    for (const std::string& stored : {appPath, oldAppPath})
        if (!stored.empty() && GetGoogleEarthChk(stored) != kNone) return stored;
    for (const fs::path& candidate : {Installed("pro", kProCommand), OnPath(kProCommand),
                                      Installed("free", kFreeCommand), OnPath(kFreeCommand)})
        if (!candidate.empty() && GetGoogleEarthChk(candidate) != kNone) return candidate;
    return {};
}

fs::path GoogleEarthLocator::OnPath(std::string_view command) const {
    std::size_t start = 0;
    while (start <= path_.size()) {
        const std::size_t end = std::min(path_.find(':', start), path_.size());
        const std::string_view dir = std::string_view(path_).substr(start, end - start);
        // A relative entry means the working folder, which a desktop program never searches.
        if (!dir.empty() && dir.front() == '/') {
            const fs::path file = fs::path(dir) / command;
            if (IsExecutableFile(file)) return file;
        }
        start = end + 1;
    }
    return {};
}

fs::path GoogleEarthLocator::Installed(std::string_view edition, std::string_view command) const {
    return root_ / edition / command;
}

}  // namespace lumivex
