#pragma once
// Japanese words for the codes of four Exif tags, shared by the report texts and the dialog.
#include <cstdint>
#include <string_view>

namespace lumivex {

class ExifValueTables {
  public:
    static std::string_view ExposureProgram(std::int64_t code);
    static std::string_view Flash(std::int64_t code);  // the whole stored value, not bit by bit
    static std::string_view MeteringMode(std::int64_t code);
    static std::string_view LightSource(std::int64_t code);  // unknown codes give ""
};

}  // namespace lumivex
