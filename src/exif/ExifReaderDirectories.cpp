// The readers of IFD0, IFD1 and the Exif directory: each walks its entries in file order and
// stores what its table says; a later entry with the same tag overwrites the earlier value.
#include <string>
#include <vector>

#include "exif/ExifReader.h"
#include "exif/ExifTagTable.h"

namespace lumivex {
namespace {

constexpr std::uint32_t kShort = 3;
constexpr std::uint32_t kLong = 4;

enum class Which { Ifd0, Ifd1, Exif };

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

class DirectoryReader {
  public:
    DirectoryReader(ExifReader& x, ByteSource& s, std::uint32_t code, Which which)
        : x_(x), s_(s), code_(code), which_(which) {}

    void Run(const std::vector<DirEntry>& dir, std::span<const TagRow> rows, ExifDict& out) {
        const std::vector<bool> later = OverwrittenLater(dir);
        for (std::size_t i = 0; i < dir.size(); ++i) {
            const TagRow* row = FindRow(rows, dir[i].tag);
            if (row == nullptr) continue;
            const bool text = row->read == TagRead::Text || row->read == TagRead::Comment;
            if (text && later[i]) continue;
            Apply(*row, dir[i], i, out);
        }
    }

  private:
    void Apply(const TagRow& row, const DirEntry& e, std::size_t i, ExifDict& out);
    void Rational(const std::string& key, std::size_t i, std::size_t first, ExifDict& out);
    void SubjectArea(const DirEntry& e, std::size_t i, ExifDict& out);

    double Long(std::size_t i, std::uint64_t dist) {
        switch (which_) {
            case Which::Ifd0:
                return x_.ByteToLong0(s_, i, dist, code_);
            case Which::Ifd1:
                return x_.ByteToLong1(s_, i, dist, code_);
            case Which::Exif:
                return x_.ByteToLongE(s_, i, dist, code_);
        }
        return 0;
    }
    double Short(std::size_t i, std::uint64_t dist) {
        return which_ == Which::Exif ? x_.ByteToShortE(s_, i, dist, code_)
                                     : x_.ByteToShort0(s_, i, dist, code_);
    }
    std::string Text(std::size_t i) {
        switch (which_) {
            case Which::Ifd0:
                return x_.ByteToASCII0(s_, i, code_);
            case Which::Ifd1:
                return x_.ByteToASCII1(s_, i, code_);
            case Which::Exif:
                return x_.ByteToASCIIe(s_, i, code_);
        }
        return {};
    }

    ExifReader& x_;
    ByteSource& s_;
    std::uint32_t code_;
    Which which_;
};

void DirectoryReader::Rational(const std::string& key, std::size_t i, std::size_t first,
                               ExifDict& out) {
    if (first == 1) {  // signed: only the Exif directory has them
        out.Set(key + "A", x_.ByteToLongES(s_, i, 0, code_));
        out.Set(key + "B", x_.ByteToLongES(s_, i, 4, code_));
    } else {
        out.Set(key + "A", Long(i, 0));
        out.Set(key + "B", Long(i, 4));
    }
}

void DirectoryReader::SubjectArea(const DirEntry& e, std::size_t i, ExifDict& out) {
    if (e.count == 2) {
        std::int64_t x = 0, y = 0;
        ExifReader::ByteToShortR(e.offset, code_, x, y);
        out.Set("SubjectAreaX", x);
        out.Set("SubjectAreaY", y);
    } else if (e.count == 3 || e.count == 4) {
        out.Set("SubjectAreaX", Short(i, 0));
        out.Set("SubjectAreaY", Short(i, 2));
        if (e.count == 3) {
            out.Set("SubjectAreaD", Short(i, 4));
        } else {
            out.Set("SubjectAreaW", Short(i, 4));
            out.Set("SubjectAreaH", Short(i, 6));
        }
    }
}

void DirectoryReader::Apply(const TagRow& row, const DirEntry& e, std::size_t i, ExifDict& out) {
    const std::string key = row.key;
    switch (row.read) {
        case TagRead::Short:
            out.Set(key, ExifReader::ByteToShort(e.offset, code_));
            break;
        case TagRead::ShortOrLong:
            if (e.type == kShort) out.Set(key, ExifReader::ByteToShort(e.offset, code_));
            if (e.type == kLong) out.Set(key, static_cast<double>(e.offset));
            break;
        case TagRead::ValueField:
            out.Set(key, static_cast<double>(e.offset));
            break;
        case TagRead::StripField:
            if (e.type == kLong) {
                out.Set(key, static_cast<double>(e.offset));
            } else {
                out.Set(key, ExifReader::ByteToShort(e.offset, code_));
            }
            break;
        case TagRead::Mark:
            out.Set(key, std::int64_t{0});
            break;
        case TagRead::Text:
            out.Set(key, Text(i));
            break;
        case TagRead::Rational:
            Rational(key, i, 0, out);
            break;
        case TagRead::SRational:
            Rational(key, i, 1, out);
            break;
        case TagRead::Char:
            out.Set(key, ExifReader::ByteToChar(e.offset, code_));
            break;
        case TagRead::Low7Bits:
            out.Set(key, ExifReader::ByteTo3Bit(e.offset, code_));
            break;
        case TagRead::Digits4:
            out.Set(key, ExifReader::ByteToLong(e.offset, code_));
            break;
        case TagRead::Chars4:
            out.Set(key, ExifReader::ByteToASCIIe2(e.offset, code_));
            break;
        case TagRead::ShortPair: {
            std::int64_t first = 0, second = 0;
            ExifReader::ByteToShortR(e.offset, code_, first, second);
            out.Set(key + "X", first);
            out.Set(key + "Y", second);
            break;
        }
        case TagRead::Shorts3:
            out.Set(key + "1", Short(i, 0));
            out.Set(key + "2", Short(i, 2));
            out.Set(key + "3", Short(i, 4));
            break;
        case TagRead::Comment:
            out.Set(key, x_.ByteToComment(s_, i));
            break;
        case TagRead::Iso:
            out.Set(e.count == 1 ? key : key + "M", ExifReader::ByteToShort(e.offset, code_));
            break;
        case TagRead::SubjectArea:
            SubjectArea(e, i, out);
            break;
        case TagRead::Ignore:
            break;
    }
}

}  // namespace

void ExifReader::LoadFileIFD0(ByteSource& s, std::uint32_t code) {
    DirectoryReader(*this, s, code, Which::Ifd0).Run(IFD0_Dir, Ifd0Rows(), IFD0);
}

void ExifReader::LoadFileIFD1(ByteSource& s, std::uint32_t code) {
    DirectoryReader(*this, s, code, Which::Ifd1).Run(IFD1_Dir, Ifd1Rows(), IFD1);
}

void ExifReader::LoadFileIFDexif(ByteSource& s, std::uint32_t code) {
    DirectoryReader(*this, s, code, Which::Exif).Run(IFDe_Dir, ExifRows(), IFDe);
}

}  // namespace lumivex
