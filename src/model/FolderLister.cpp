#include "model/FolderLister.h"

#include "model/FolderTree.h"

namespace lumivex {

std::vector<ShownFolder> FolderLister::Folders(const std::string& folder) const {
    std::vector<ShownFolder> shown;
    if (folder.empty()) return shown;
    const std::filesystem::path dir(folder);
    for (const std::string& name : FolderTree::SortFItem(dir)) {
        std::string path;
        if (!FolderTree::ShownFolderPath(dir, name, path)) continue;
        const bool alias = path != (dir / name).string();
        shown.push_back({name, std::move(path), alias});
    }
    return shown;
}

bool FolderLister::HasSubFolder(const std::string& path) const {
    return FolderTree::HasSubFolder(path);
}

std::string FolderLister::HasExifFile(const std::string& path,
                                      const FolderTreeOptions& options) const {
    return FolderTree::HasExifFile(path, options);
}

}  // namespace lumivex
