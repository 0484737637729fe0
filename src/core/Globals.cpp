#include "core/Globals.h"

#include <algorithm>

#include "core/ExtensionFilter.h"

namespace lumivex {
namespace {

char LowerAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameNoCase(char a, char b) {
    return LowerAscii(a) == LowerAscii(b);
}

}  // namespace

int gConvBI(bool value, bool positive) {
    return value == positive ? 1 : 0;
}

bool gConvIB(std::int64_t value, bool positive) {
    return (value >= 1) == positive;
}

std::string gConvBS(bool value, bool positive) {
    return value == positive ? "true" : "false";
}

std::int64_t gClrCtoI(Color c) {
    return std::int64_t{c.r} * 65536 + std::int64_t{c.g} * 256 + std::int64_t{c.b};
}

Color gClrItoC(std::int64_t i) {
    // Only 0xRRGGBB is meaningful; anything wider (or negative) keeps its low 24 bits so a
    // damaged setting still gives some colour instead of overflowing a channel.
    const std::int64_t v = i & 0xFFFFFF;
    return Color{static_cast<std::uint8_t>(v / 65536), static_cast<std::uint8_t>(v / 256 % 256),
                 static_cast<std::uint8_t>(v % 256)};
}

std::uint64_t gBinToInt(std::string_view bytes) {
    std::uint64_t value = 0;
    for (const char c : bytes)
        value = (value << 8) | static_cast<std::uint8_t>(c);
    return value;
}

std::uint64_t gBitR(std::uint64_t value, unsigned start, unsigned length) {
    if (start >= 64 || length == 0) return 0;
    const std::uint64_t shifted = value >> start;
    if (length >= 64) return shifted;
    return shifted & ((std::uint64_t{1} << length) - 1);
}

void gExtractBodyAndExtn(std::string_view name, std::string& body, std::string& extn) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) {
        body = std::string(name);
        return;
    }
    body = std::string(name.substr(0, dot));
    extn = std::string(name.substr(dot + 1));
}

std::string gExtractExtn(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string() : std::string(name.substr(dot + 1));
}

bool gDottedFI(std::string_view name) {
    return !name.empty() && name.front() == '.';
}

std::string gLowerAscii(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(), LowerAscii);
    return out;
}

bool gEqualNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), SameNoCase);
}

bool gChkGx(const Settings& prefs, std::string_view /*type*/, std::string_view name) {
    // The file type is deliberately ignored: files on cards carry no type codes, so the
    // extension alone decides.
    return ExtensionFilter(prefs).Accepts(name);
}

}  // namespace lumivex
