#pragma once
// The rows of the four lists of the information window: a readable summary, then the raw tags
// of IFD0, the Exif directory and the GPS directory. Every row is there whatever the file holds;
// a missing tag leaves the value empty instead of writing "--". Labels end with one blank,
// which stays in the copied text.
#include <string>
#include <vector>

#include "exif/ExifReader.h"

namespace lumivex {

struct ExifInfoRow {
    std::string label;     // column 0
    std::string value;     // column 1, empty when the tag is missing
    bool present = false;  // the tag is there: the value is shown bold
};

using ExifInfoList = std::vector<ExifInfoRow>;

class ExifInfoRows {
  public:
    static constexpr int kLists = 4;

    static ExifInfoList SelFileExif21(const ExifReader& x);  // summary, 22 rows
    static ExifInfoList SelFileExif22(const ExifReader& x);  // IFD0, 30 rows
    static ExifInfoList SelFileExif23(const ExifReader& x);  // Exif directory, 61 rows
    // GPS directory: 27 rows, or an empty row and a two-part message when there is none.
    static ExifInfoList SelFileExif24(const ExifReader& x);

    // The selected rows, top to bottom, each as label ":" value and a line feed.
    static std::string CopyString2(const ExifInfoList& rows, const std::vector<bool>& selected);
};

}  // namespace lumivex
