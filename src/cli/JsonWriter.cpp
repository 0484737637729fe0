#include "cli/JsonWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/DisplayText.h"
#include "core/NumberFormat.h"

namespace lumivex {
namespace {

bool NeedsNoEscape(char ch) {
    const auto c = static_cast<unsigned char>(ch);
    return c >= 0x20 && c != '"' && c != '\\';
}

}  // namespace

void JsonWriter::Escaped(std::string_view utf8) {
    out_ += '"';
    Body(utf8);
    out_ += '"';
}

void JsonWriter::Body(std::string_view utf8) {
    std::size_t plain = 0;  // copy runs that need no escape in one append
    while (plain < utf8.size() && NeedsNoEscape(utf8[plain]))
        ++plain;
    out_.append(utf8.substr(0, plain));
    for (const char ch : utf8.substr(plain)) {
        const auto c = static_cast<unsigned char>(ch);
        if (c == '"' || c == '\\') {
            out_ += '\\';
            out_ += ch;
        } else if (c < 0x20) {
            Hex("\\u00", c);
        } else {
            out_ += ch;
        }
    }
}

void JsonWriter::Hex(const char* prefix, unsigned char byte) {
    static constexpr char kHex[] = "0123456789abcdef";
    out_ += prefix;
    out_ += kHex[byte >> 4];
    out_ += kHex[byte & 15];
}

void JsonWriter::Bytes(std::string_view bytes) {
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    Escaped(ascii ? bytes : Latin1ToUtf8(bytes));
}

void JsonWriter::Text(std::string_view text) {
    out_ += '"';
    std::size_t run = 0;  // start of the valid UTF-8 not yet written
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t n = Utf8SequenceLength(text, i);
        if (n > 0) {
            i += n;
            continue;
        }
        Body(text.substr(run, i - run));
        Hex("\\udc", static_cast<unsigned char>(text[i]));  // always 80 to ff
        run = ++i;
    }
    Body(text.substr(run));
    out_ += '"';
}

void JsonWriter::Integer(std::int64_t value) {
    out_ += DefaultText(value);
}

void JsonWriter::Double(double value) {
    if (!std::isfinite(value)) {
        out_ += "null";
        return;
    }
    std::array<char, 32> buf;
    const auto res = std::to_chars(buf.data(), buf.data() + buf.size(), value);
    const std::string_view text(buf.data(), static_cast<std::size_t>(res.ptr - buf.data()));
    out_ += text;
    if (text.find_first_of(".e") == std::string_view::npos) out_ += ".0";
}

}  // namespace lumivex
