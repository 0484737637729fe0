#include "platform/Volumes.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/DiskLabels.h"

namespace lumivex::Volumes {
namespace {

std::vector<std::string>& gVarray() {
    static std::vector<std::string> list;
    return list;
}

// Strictly below `folder` (which ends in "/"): the folder itself is not a volume.
bool Below(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder);
}

}  // namespace

bool IsUserVolume(const MountEntry& entry, std::string_view user) {
    const std::string_view point = entry.mountPoint;
    if (point == "/" || IsRemovable(point, user)) return true;
    return Below(point, "/mnt/") && entry.source.starts_with("/dev/");
}

bool IsRemovable(std::string_view mountPoint, std::string_view user) {
    if (Below(mountPoint, "/media/")) return true;
    return !user.empty() && Below(mountPoint, "/run/media/" + std::string(user) + "/");
}

bool Shows(const MountEntry& entry, int mode, std::string_view user) {
    return mode == kShowAll || IsUserVolume(entry, user);
}

std::vector<std::string> ShownMountPoints(const MountTable& table, int mode,
                                          std::string_view user) {
    std::vector<std::string> points;
    // The start-up disk is always there, even when the table could not be read.
    if (mode != kShowAll) points.emplace_back("/");
    for (const MountEntry& e : table.Entries())
        if (Shows(e, mode, user)) points.push_back(e.mountPoint);
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

void gMakeVolumeList(int mode) {
    gMakeVolumeList(mode, MountTable::Read(), CurrentUser());
}

void gMakeVolumeList(int mode, const MountTable& table, std::string_view user) {
    gVarray() = ShownMountPoints(table, mode, user);
}

int gVolumeCount() {
    return static_cast<int>(gVarray().size()) - 1;
}

std::string gGetVolumeInfo(int index) {
    if (index < 0 || index > gVolumeCount()) return "";
    return gVarray()[static_cast<std::size_t>(index)];
}

std::string gVolumeName(const std::string& mountPoint) {
    return VolumeName(mountPoint, MountTable::Read(), DiskLabels());
}

std::string VolumeName(const std::string& mountPoint, const MountTable& table,
                       const DiskLabels& labels) {
    if (const MountEntry* entry = table.Find(mountPoint)) {
        std::string label = labels.LabelOf(entry->source);
        if (!label.empty()) return label;
    }
    std::filesystem::path path(mountPoint);
    while (!path.empty() && path.filename().empty() && path != path.root_path())
        path = path.parent_path();
    const std::string last = path.filename().string();
    return last.empty() ? mountPoint : last;
}

std::string CurrentUser() {
    if (const char* user = std::getenv("USER"); user != nullptr && *user != '\0') return user;
    if (const passwd* pw = ::getpwuid(::geteuid()); pw != nullptr && pw->pw_name != nullptr)
        return pw->pw_name;
    return "";
}

}  // namespace lumivex::Volumes
