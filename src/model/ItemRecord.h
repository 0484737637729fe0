#pragma once
// One thumbnail of the shown folder: what the scan found plus what the grid and the selection
// add. Qt-free. The item keeps its thumbnail's stored form, not pixels: the painter takes the
// decoded picture from a cache bounded in bytes, and export and clipboard decode their own.
#include <string>

#include "core/Picture.h"
#include "core/StoredThumbnail.h"
#include "scan/ScanItem.h"

namespace lumivex {

struct ItemRecord {
    bool selected = false;
    std::string fname;      // file name with extension
    std::string path;       // native path, to reopen the file
    StoredThumbnail thumb;  // the thumbnail as read, before any turn
    int w = 0;              // the size shown; swapped by each quarter turn
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
    // Quarter turns clockwise from the thumbnail as read to the one shown: the orientation
    // tag's and the user's, which add up because every turn moves pixels exactly.
    int Turns() const { return (rotate + rot) % 4; }
    // The displayed picture, decoded anew; null for an item without a thumbnail.
    Picture Shown() const { return thumb.Decode(Turns()); }
    // The label under the picture: the name without its extension unless `fullNames`.
    std::string Label(bool fullNames) const;
};

}  // namespace lumivex
