#include "exif/DirectoryReader.h"

#include <array>

#include "core/NumberFormat.h"
#include "exif/ByteDecoder.h"
#include "exif/GpsAngle.h"

namespace lumivex {
namespace {

constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;

// True for entries whose tag comes up again later in the directory. Reading such an entry's
// text would be overwritten anyway; skipping it keeps a file that repeats one long text
// thousands of times from costing thousands of reads.
std::vector<bool> OverwrittenLater(const std::vector<DirEntry>& dir) {
    std::vector<bool> later(dir.size(), false);
    std::vector<bool> seen(0x10000, false);
    for (std::size_t i = dir.size(); i-- > 0;) {
        later[i] = seen[dir[i].tag & 0xFFFF];
        seen[dir[i].tag & 0xFFFF] = true;
    }
    return later;
}

bool IsText(TagRead r) {
    return r == TagRead::Text || r == TagRead::Comment;
}
bool IsAngle(TagRead r) {
    return r == TagRead::Latitude || r == TagRead::Longitude;
}

}  // namespace

void DirectoryReader::Run(const std::vector<DirEntry>& dir, std::span<const TagRow> rows,
                          ExifDict& out) {
    const std::vector<bool> later = OverwrittenLater(dir);
    std::vector<std::pair<const TagRow*, std::size_t>> angles;
    for (std::size_t i = 0; i < dir.size(); ++i) {
        const TagRow* row = FindRow(rows, dir[i].tag);
        if (row == nullptr || (IsText(row->read) && later[i])) continue;
        if (IsAngle(row->read)) {
            angles.emplace_back(row, i);
        } else {
            Apply(*row, dir[i], out);
        }
    }
    for (const auto& [row, i] : angles)
        Angle(row->read == TagRead::Latitude, dir[i], out);
}

double DirectoryReader::Rational(const std::string& key, const DirEntry& e, std::uint64_t dist,
                                 ExifDict& out, bool isSigned) {
    const double a = isSigned ? v_.Signed(e, dist) : v_.Number(e, dist, 4);
    const double b = isSigned ? v_.Signed(e, dist + 4) : v_.Number(e, dist + 4, 4);
    out.Set(key + "A", a);
    out.Set(key + "B", b);
    return a / b;
}

void DirectoryReader::Triple(const std::string& key, const DirEntry& e, const char* sep,
                             ExifDict& out) {
    std::string text;
    for (int k = 0; k < 3; ++k) {
        if (k > 0) text += sep;
        text += Format(Rational(key + std::to_string(k + 1), e, 8u * k, out), "##");
    }
    out.Set(key, text);
}

void DirectoryReader::SubjectArea(const DirEntry& e, ExifDict& out) {
    if (e.count == 2) {
        std::int64_t x = 0, y = 0;
        ByteDecoder::ByteToShortR(e.offset, v_.Code(), x, y);
        out.Set("SubjectAreaX", x);
        out.Set("SubjectAreaY", y);
    } else if (e.count == 3 || e.count == 4) {
        out.Set("SubjectAreaX", Short(e, 0));
        out.Set("SubjectAreaY", Short(e, 2));
        if (e.count == 3) {
            out.Set("SubjectAreaD", Short(e, 4));
        } else {
            out.Set("SubjectAreaW", Short(e, 4));
            out.Set("SubjectAreaH", Short(e, 6));
        }
    }
}

void DirectoryReader::Angle(bool latitude, const DirEntry& e, ExifDict& out) {
    std::array<double, 6> parts{};
    for (std::size_t k = 0; k < parts.size(); ++k)
        parts[k] = v_.Number(e, 4u * k, 4);
    GpsAngle::Store(out, latitude, parts);
}

void DirectoryReader::ApplyGps(const TagRow& row, const DirEntry& e, ExifDict& out) {
    const std::string key = row.key;
    switch (row.read) {
        case TagRead::Letter: {
            const auto c = ByteDecoder::ByteToChar(e.offset, v_.Code());
            out.Set(key, c == 0 ? std::string() : std::string(1, static_cast<char>(c)));
            break;
        }
        case TagRead::Measure:
            out.Set(key, Format(Rational(key, e, 0, out), "#####.####"));
            break;
        case TagRead::Altitude:
            out.Set(key, Format(Rational(key, e, 0, out), "#####") + " m");
            break;
        case TagRead::TimeOfDay:
            Triple(key, e, ":", out);
            break;
        case TagRead::DestAngle:
            Triple(key, e, ".", out);
            break;
        default:
            break;
    }
}

void DirectoryReader::Apply(const TagRow& row, const DirEntry& e, ExifDict& out) {
    const std::string key = row.key;
    const std::uint32_t code = v_.Code();
    switch (row.read) {
        case TagRead::Short:
            out.Set(key, ByteDecoder::ByteToShort(e.offset, code));
            break;
        case TagRead::ShortOrLong:
            if (e.type == kShort) out.Set(key, ByteDecoder::ByteToShort(e.offset, code));
            if (e.type == kLong) out.Set(key, static_cast<double>(e.offset));
            break;
        case TagRead::ValueField:
            out.Set(key, static_cast<double>(e.offset));
            break;
        case TagRead::StripField:
            if (e.type == kLong) {
                out.Set(key, static_cast<double>(e.offset));
            } else {
                out.Set(key, ByteDecoder::ByteToShort(e.offset, code));
            }
            break;
        case TagRead::Mark:
            out.Set(key, std::int64_t{0});
            break;
        case TagRead::Text:
            out.Set(key, v_.Text(e));
            break;
        case TagRead::Rational:
        case TagRead::SRational:
            Rational(key, e, 0, out, row.read == TagRead::SRational);
            break;
        case TagRead::Char:
            out.Set(key, ByteDecoder::ByteToChar(e.offset, code));
            break;
        case TagRead::Low7Bits:
            out.Set(key, ByteDecoder::ByteTo3Bit(e.offset, code));
            break;
        case TagRead::Digits4:
            out.Set(key, ByteDecoder::ByteToLong(e.offset, code));
            break;
        case TagRead::Chars4:
            out.Set(key, ByteDecoder::ByteToASCIIe2(e.offset, code));
            break;
        case TagRead::ShortPair: {
            std::int64_t first = 0, second = 0;
            ByteDecoder::ByteToShortR(e.offset, code, first, second);
            out.Set(key + "X", first);
            out.Set(key + "Y", second);
            break;
        }
        case TagRead::Shorts3:
            out.Set(key + "1", Short(e, 0));
            out.Set(key + "2", Short(e, 2));
            out.Set(key + "3", Short(e, 4));
            break;
        case TagRead::Comment:
            out.Set(key, v_.Comment(e));
            break;
        case TagRead::Iso:
            out.Set(e.count == 1 ? key : key + "M", ByteDecoder::ByteToShort(e.offset, code));
            break;
        case TagRead::SubjectArea:
            SubjectArea(e, out);
            break;
        case TagRead::Ignore:
            break;
        default:
            ApplyGps(row, e, out);
            break;
    }
}

}  // namespace lumivex
