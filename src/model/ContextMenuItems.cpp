#include "model/ContextMenuItems.h"

namespace lumivex {

std::vector<std::string> ContextMenuItems(int pCidxFlg, bool gpsOpen) {
    using namespace menutext;
    if (pCidxFlg <= 0) return {};
    std::vector<std::string> items{kExportExif, kExportJpeg, kExportAs,
                                   kSeparator,  kRotateLeft, kRotateRight};
    if (pCidxFlg != 1) return items;
    items.insert(items.end(), {kSeparator, kCopy, kSeparator, kExifInfo});
    if (gpsOpen) items.emplace_back(kGoogleEarth);
    return items;
}

}  // namespace lumivex
