#include "core/DisplayText.h"

#include <cstdint>

namespace lumivex {

std::size_t Utf8SequenceLength(std::string_view s, std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<std::uint8_t>(s[k]); };
    const std::uint8_t c = byte(i);
    if (c < 0x80) return 1;
    std::size_t n = 0;
    std::uint32_t cp = 0;
    if (c >= 0xC2 && c <= 0xDF) {
        n = 2;
        cp = c & 0x1Fu;
    } else if (c >= 0xE0 && c <= 0xEF) {
        n = 3;
        cp = c & 0x0Fu;
    } else if (c >= 0xF0 && c <= 0xF4) {
        n = 4;
        cp = c & 0x07u;
    } else {
        return 0;
    }
    if (i + n > s.size()) return 0;
    for (std::size_t k = 1; k < n; ++k) {
        if ((byte(i + k) & 0xC0u) != 0x80u) return 0;
        cp = (cp << 6) | (byte(i + k) & 0x3Fu);
    }
    if ((n == 3 && cp < 0x800) || (n == 4 && cp < 0x10000) || cp > 0x10FFFF) return 0;
    if (cp >= 0xD800 && cp <= 0xDFFF) return 0;
    return n;
}

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t n = Utf8SequenceLength(bytes, i);
        if (n == 0) return false;
        i += n;
    }
    return true;
}

std::string Latin1ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const char ch : bytes) {
        const auto c = static_cast<std::uint8_t>(ch);
        if (c < 0x80) {
            out.push_back(ch);
        } else {
            out.push_back(static_cast<char>(0xC0 | (c >> 6)));
            out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
        }
    }
    return out;
}

std::string DisplayText(std::string_view bytes) {
    std::string text = IsValidUtf8(bytes) ? std::string(bytes) : Latin1ToUtf8(bytes);
    std::erase(text, '\0');
    return text;
}

}  // namespace lumivex
