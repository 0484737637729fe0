#include "exif/ValueReader.h"

#include <array>

#include "exif/ByteDecoder.h"
#include "exif/TextConverter.h"

namespace lumivex {
namespace {

// A legitimate text lies inside the Exif segment, which is at most 64 KiB long; a longer
// read can only come from a damaged count, and reading on would only find more of its noise.
constexpr std::uint64_t kMaxTextBytes = 64 * 1024;

std::string WithoutZeros(const std::uint8_t* p, std::size_t n) {
    std::string out;
    out.reserve(n);
    for (std::size_t i = 0; i < n; ++i)
        if (p[i] != 0) out.push_back(static_cast<char>(p[i]));
    return out;
}

std::string Lowered(std::string s) {
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

// CR LF pairs become a single CR, the line end of the program's texts.
std::string WithCrLines(const std::string& body) {
    std::string out;
    out.reserve(body.size());
    for (std::size_t k = 0; k < body.size(); ++k) {
        out.push_back(body[k]);
        if (body[k] == '\r' && k + 1 < body.size() && body[k + 1] == '\n') ++k;
    }
    return out;
}

}  // namespace

double ValueReader::Number(const DirEntry& e, std::uint64_t dist, int size) {
    std::array<std::uint8_t, 4> b{};
    s_.Copy(Position(e.offset + dist), b.data(), static_cast<std::size_t>(size));
    return static_cast<double>(ByteDecoder::ByteOrder(code_, size, b[0], b[1], b[2], b[3]));
}

double ValueReader::Signed(const DirEntry& e, std::uint64_t dist) {
    std::array<std::uint8_t, 4> b{};
    s_.Copy(Position(e.offset + dist), b.data(), b.size());
    const std::uint64_t v = ByteDecoder::ByteOrderS(code_, b[0], b[1], b[2], b[3]);
    return static_cast<double>((v & 0x800000) ? (v | 0xFF000000) : v);
}

std::string ValueReader::Text(const DirEntry& e) {
    if (e.count <= 4) {
        std::uint8_t bytes[4];
        ByteDecoder::InFileOrder(e.offset, code_, bytes);
        return WithoutZeros(bytes, e.count);
    }
    const auto block = s_.Block(Position(e.offset), e.count, kMaxTextBytes);
    return WithoutZeros(block.data(), block.size());
}

// JIS bodies are converted to UTF-8; ASCII, undefined and "UNICODE" (taken as UTF-8) bodies
// stay; an unknown character code empties the body.
std::string ValueReader::Comment(const DirEntry& e) {
    const std::uint64_t pos = Position(e.offset);
    std::array<std::uint8_t, 8> head{};
    s_.Copy(pos, head.data(), head.size());
    std::string code = Lowered(WithoutZeros(head.data(), head.size()));
    if (code.empty()) code = "undef";
    std::string body;
    if (e.count > 8) {
        const auto block = s_.Block(pos + 8, e.count - 8u, kMaxTextBytes);
        body = WithoutZeros(block.data(), block.size());
    }
    if (code == "jis") {
        body = TextConverter::EncText(body, "JIS", "UTF-8");
    } else if (code == "unicode") {
        body = TextConverter::EncText(body, "UTF-8", "UTF-8");
    } else if (code != "ascii" && code != "undef") {
        body.clear();
    }
    return WithCrLines(body);
}

std::optional<std::vector<std::uint8_t>> ValueReader::Block(double start, double length,
                                                            std::uint64_t cap) {
    // Both come from 32-bit fields; anything else is a damaged or hand-made dictionary.
    constexpr double kMaxField = 4294967295.0;
    if (!(start >= 0 && start <= kMaxField && length >= 0 && length <= static_cast<double>(cap)))
        return std::nullopt;
    return s_.Block(Position(static_cast<std::uint64_t>(start)), static_cast<std::uint64_t>(length),
                    cap);
}

}  // namespace lumivex
