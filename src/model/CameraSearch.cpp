#include "model/CameraSearch.h"

#include "model/FolderTree.h"

namespace lumivex {

bool CameraSearch::AutoSelect2(std::string_view name) {
    if (name.size() < 3) return false;
    for (std::size_t i = 0; i < 3; ++i)
        if (name[i] < '0' || name[i] > '9') return false;
    return true;
}

std::optional<CameraSearch::Found> CameraSearch::Find(const RowRecord::Rows& rows) {
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i]->vofo != "volume") continue;
        if (auto found = FindOnVolume(rows[i]->path)) return found;
    }
    return std::nullopt;
}

std::optional<CameraSearch::Found> CameraSearch::FindOnVolume(const std::string& volume) {
    if (volume.empty()) return std::nullopt;
    // A card may hold more than one folder that reads "DCIM" (a link beside the real one):
    // each is looked into in turn.
    for (const auto& [name, dcim] : ShownFolders(volume)) {
        if (name != "DCIM") continue;
        for (const auto& [sub, folder] : ShownFolders(dcim))
            if (AutoSelect2(sub)) return Found{volume, dcim, folder};
    }
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> CameraSearch::ShownFolders(
    const std::filesystem::path& folder) {
    std::vector<std::pair<std::string, std::string>> shown;
    for (const std::string& name : FolderTree::SortFItem(folder)) {
        std::string path;
        if (FolderTree::ShownFolderPath(folder, name, path)) shown.emplace_back(name, path);
    }
    return shown;
}

}  // namespace lumivex
