#include "exif/TextConverter.h"

#include <iconv.h>

#include <cerrno>
#include <vector>

namespace lumivex {
namespace {

const char* SourceEncoding(std::string_view from) {
    if (from == "UTF-8") return "UTF-8";
    if (from == "JIS") return "ISO-2022-JP";
    return nullptr;
}

}  // namespace

std::string TextConverter::EncText(std::string_view text, std::string_view from, std::string_view) {
    const char* source = SourceEncoding(from);
    constexpr const char* kTarget = "UTF-8";
    if (source == nullptr || std::string_view(source) == kTarget || text.empty())
        return std::string(text);
    iconv_t cd = iconv_open(kTarget, source);
    if (cd == reinterpret_cast<iconv_t>(-1)) return std::string(text);

    std::string input(text);
    std::vector<char> output(input.size() * 4 + 16);  // ISO-2022-JP never grows past 4x in UTF-8
    char* in = input.data();
    std::size_t inLeft = input.size();
    char* out = output.data();
    std::size_t outLeft = output.size();
    const std::size_t r1 = iconv(cd, &in, &inLeft, &out, &outLeft);
    const std::size_t r2 = iconv(cd, nullptr, nullptr, &out, &outLeft);
    iconv_close(cd);
    if (r1 == static_cast<std::size_t>(-1) || r2 == static_cast<std::size_t>(-1))
        return std::string(text);
    return std::string(output.data(), static_cast<std::size_t>(out - output.data()));
}

}  // namespace lumivex
