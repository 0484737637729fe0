#pragma once
// What the worker needs to export every item: copied on the main thread, so the worker reads
// neither the window's list nor the settings. Thumbnails come separately, a few at a time
// (ExportEntry), in their stored form: the worker decodes and turns each as it writes it.
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "core/StoredThumbnail.h"

namespace lumivex {

struct ExportEntry {
    std::string fname;      // the item's file name; the target is its body and ".jpg"
    StoredThumbnail thumb;  // the item's thumbnail as read
    int turns = 0;          // quarter turns clockwise to the displayed picture
    bool ifd1 = true;       // false: nothing to export for this item
};

struct ExportJob {
    std::filesystem::path folder;                      // where the files go
    std::vector<std::filesystem::path> sourceFolders;  // where the pictures come from
    std::size_t count = 0;                             // items to expect, in list order
    int quality = 100;
};

}  // namespace lumivex
