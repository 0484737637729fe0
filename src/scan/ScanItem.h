#pragma once
#include <string>

#include "core/StoredThumbnail.h"
#include "scan/SkipReason.h"

namespace lumivex {

// What the scan learns of one file that yields a thumbnail; the browser's item record is
// built from it.
struct ScanItem {
    std::string fname;      // file name with extension
    std::string path;       // native path, to reopen the file for export and information
    StoredThumbnail thumb;  // the thumbnail as read, before any turn
    int w = 0;              // the size shown: thumb's, turned by `rotate`
    int h = 0;
    int rotate = 0;  // quarter turns applied from the orientation tag
};

}  // namespace lumivex
