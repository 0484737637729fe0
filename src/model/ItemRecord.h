#pragma once
// One thumbnail of the shown folder: what the scan found plus what the grid and the selection
// add. Qt-free; the painter wraps `pict` in an image of its own only while it draws.
#include <string>

#include "core/Picture.h"
#include "scan/ScanItem.h"

namespace lumivex {

struct ItemRecord {
    bool selected = false;
    std::string fname;  // file name with extension
    std::string path;   // native path, to reopen the file
    Picture pict;       // the displayed thumbnail
    int w = 0;          // size of pict; swapped by each quarter turn
    int h = 0;
    bool ifd1 = true;  // the item has a thumbnail to export
    int rot = 0;       // quarter turns added by the user, 0 to 3
    int rotate = 0;    // quarter turns applied from the orientation tag
    int aspect = 0;
    int labelWidth = 0;    // the label's drawn width in pixels, measured once on arrival
    bool compact = false;  // the label is too wide for the cell; set where it is placed
    int x = 0;             // left edge in content coordinates
    int y = 0;             // top edge in content coordinates

    static ItemRecord FromScan(ScanItem&& item);
    // The label under the picture: the name without its extension unless `fullNames`.
    std::string Label(bool fullNames) const;
};

}  // namespace lumivex
