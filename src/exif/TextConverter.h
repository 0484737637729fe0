#pragma once
#include <string>
#include <string_view>

namespace lumivex {

// Character-code conversion of the Exif user comment, through iconv.
class TextConverter {
  public:
    // `from` is "UTF-8" or "JIS" (ISO-2022-JP); the target is always UTF-8, the encoding the
    // desktop shows. Text with no known source encoding, with the same source and target, or
    // that the converter rejects comes back as it went in.
    static std::string EncText(std::string_view text, std::string_view from, std::string_view to);
};

}  // namespace lumivex
