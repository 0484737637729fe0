#pragma once
// The choice of format when the user saves a thumbnail as any picture format: the typed
// extension decides when it names a format on offer, else the chosen filter does, and the
// name then gets that format's extension. Qt-free; the formats come from the image writers.
#include <string>
#include <vector>

namespace lumivex {

struct ImageFormat {
    std::string name;                   // the writer's format name, such as "jpeg"
    std::vector<std::string> suffixes;  // lower case, without the dot; the first is the default
};

class ExportFormatChoice {
  public:
    struct Choice {
        std::string file;  // the name to write, with the format's extension
        int format = -1;   // index into the formats; -1 when there is nothing to offer
    };

    // The dialog's filter line for a format: "JPEG (*.jpeg *.jpg)".
    static std::string FilterText(const ImageFormat& format);
    // The format of the typed extension, else `selected` (an index into `formats`).
    static Choice Choose(const std::vector<ImageFormat>& formats, const std::string& file,
                         int selected);
    // The index of the format that writes files named `name`; -1 when none does.
    static int FormatOfName(const std::vector<ImageFormat>& formats, const std::string& name);
};

}  // namespace lumivex
