#include "cli/TerminalText.h"

#include <cstdint>

#include "core/DisplayText.h"

namespace lumivex {
namespace {

void AppendHex(std::string& out, const char* prefix, std::uint8_t byte) {
    static constexpr char kHex[] = "0123456789abcdef";
    out += prefix;
    out += kHex[byte >> 4];
    out += kHex[byte & 15];
}

}  // namespace

std::string TerminalText(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const auto c = static_cast<std::uint8_t>(bytes[i]);
        const std::size_t n = Utf8SequenceLength(bytes, i);
        if (n == 0 || c < 0x20 || c == 0x7F) {
            AppendHex(out, "\\x", c);
            ++i;
            continue;
        }
        const auto next = n == 2 ? static_cast<std::uint8_t>(bytes[i + 1]) : 0;
        if (c == 0xC2 && next < 0xA0) {  // U+0080..U+009F, which terminals take as controls
            AppendHex(out, "\\u00", next);
        } else {
            out.append(bytes.substr(i, n));
        }
        i += n;
    }
    return out;
}

}  // namespace lumivex
