#pragma once
// Everything the sidebar reads from the disk, in one place: the folders a row lists and the
// two marks of a row. It runs on worker threads, so a card that stops answering stalls a
// worker and never the window; tests put in a lister that blocks or counts. No Qt.
#include <string>
#include <vector>

#include "model/FolderTreeOptions.h"

namespace lumivex {

// One shown subfolder: its own name, and the path its row carries (a link's target).
struct ShownFolder {
    std::string name;
    std::string path;
    bool alias = false;
    bool operator==(const ShownFolder&) const = default;
};

class FolderLister {
  public:
    virtual ~FolderLister() = default;

    // The subfolders of `folder` that are rows, in name order.
    virtual std::vector<ShownFolder> Folders(const std::string& folder) const;
    // Whether the row of `path` offers to open.
    virtual bool HasSubFolder(const std::string& path) const;
    // "true" when a file directly in `path` is a picture with a thumbnail, else "false".
    virtual std::string HasExifFile(const std::string& path,
                                    const FolderTreeOptions& options) const;
};

}  // namespace lumivex
