#include "core/PrefFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>
#include <vector>

#include "core/DisplayText.h"
#include "core/FileServices.h"
#include "core/Globals.h"
#include "core/PrefTable.h"
#include "platform/XdgDirs.h"

// Layout of the settings file (all layouts start the same way):
//   header       Pascal string: one length byte, then that many bytes ("pref4")
//   N            32-bit unsigned count of integers, BIG-ENDIAN
//   N integers   each a Pascal string holding the decimal text of the value
//   M            32-bit unsigned count of strings, BIG-ENDIAN
//   M strings    each a Pascal string (at most 255 bytes, stored as raw bytes)
// The older "pref", "pref2" and "pref3" layouts differ only in strings 17, 18 and 19, which
// are a 32-bit BIG-ENDIAN length followed by that many bytes. A Pascal string cannot hold
// more than 255 bytes, so longer strings are cut when saved.

namespace lumivex {
namespace {

constexpr std::string_view kCurrentHeader = "pref4";
constexpr std::size_t kPascalMax = 255;
constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
constexpr long kExponentCap = 100000;

// ---- reading from memory: each Take* fails, consuming nothing, when the data ends ----

bool TakeU32(std::string_view& in, std::uint32_t& out) {
    if (in.size() < 4) return false;
    out = static_cast<std::uint32_t>(gBinToInt(in.substr(0, 4)));
    in.remove_prefix(4);
    return true;
}

bool TakeBytes(std::string_view& in, std::size_t length, std::string_view& out) {
    if (in.size() < length) return false;
    out = in.substr(0, length);
    in.remove_prefix(length);
    return true;
}

bool TakePascal(std::string_view& in, std::string_view& out) {
    if (in.empty()) return false;
    std::string_view rest = in.substr(1);
    if (!TakeBytes(rest, static_cast<std::uint8_t>(in.front()), out)) return false;
    in = rest;
    return true;
}

bool TakeLongString(std::string_view& in, std::string_view& out) {
    std::string_view rest = in;
    std::uint32_t length = 0;
    if (!TakeU32(rest, length) || !TakeBytes(rest, length, out)) return false;
    in = rest;
    return true;
}

// The loops run to the stored count, but each pass consumes at least one byte or stops, so a
// huge count in a short file ends with the data. Values beyond the tables are read and
// dropped to keep the following records aligned.
bool ReadIntegers(std::string_view& in, Settings& s) {
    std::uint32_t count = 0;
    if (!TakeU32(in, count)) return false;
    for (std::uint64_t i = 0; i < count; ++i) {
        std::string_view text;
        if (!TakePascal(in, text)) return false;
        if (i < s.gPref.size()) s.gPref[i] = PrefFile::Val(text);
    }
    return true;
}

void ReadStrings(std::string_view& in, Settings& s, bool pascalOnly) {
    std::uint32_t count = 0;
    if (!TakeU32(in, count)) return;
    for (std::uint64_t i = 0; i < count; ++i) {
        const bool longForm = !pascalOnly && i >= 17 && i <= 19;
        std::string_view text;
        if (!(longForm ? TakeLongString(in, text) : TakePascal(in, text))) return;
        if (i < s.gPrefS.size()) s.gPrefS[i] = std::string(text);
    }
}

// 1 to 3 for the older layouts; anything else reads as the current one.
int LayoutOf(std::string_view header) {
    if (gEqualNoCase(header, "pref")) return 1;
    if (gEqualNoCase(header, "pref2")) return 2;
    if (gEqualNoCase(header, "pref3")) return 3;
    return 4;
}

// Older layouts lacked some settings; they get what a new installation would have. Their
// windows could also sit under the menu bar, hence the lowest top.
void Migrate(Settings& s, int layout, std::int64_t highlight) {
    s.ResetIntsNewerThan(layout, highlight);
    if (layout < 4)
        s.gPref[pref::kFrameTop] = std::max<std::int64_t>(s.gPref[pref::kFrameTop], 100);
}

void Parse(Settings& s, std::string_view in, std::int64_t highlight) {
    std::string_view header;
    if (!TakePascal(in, header)) return;
    if (ReadIntegers(in, s)) ReadStrings(in, s, gEqualNoCase(header, kCurrentHeader));
    // A damaged or edited file must not hand the window sizes that overflow its arithmetic.
    s.BoundInts(highlight);
    Migrate(s, LayoutOf(header), highlight);
}

// ---- writing ----

void AppendU32(std::string& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<char>((value >> shift) & 0xFF));
}

// Cuts to the 255 bytes a Pascal string can hold; valid UTF-8 is cut back to a character
// boundary so the stored text stays valid.
std::string_view FitPascal(std::string_view text) {
    if (text.size() <= kPascalMax) return text;
    std::size_t cut = kPascalMax;
    if (IsValidUtf8(text)) {
        while (cut > 0 && (static_cast<std::uint8_t>(text[cut]) & 0xC0) == 0x80)
            --cut;
    }
    return text.substr(0, cut);
}

void AppendPascal(std::string& out, std::string_view text) {
    const std::string_view fitted = FitPascal(text);
    out.push_back(static_cast<char>(fitted.size()));
    out.append(fitted);
}

std::string Serialize(const Settings& s) {
    const std::int64_t lastInt =
        std::clamp<std::int64_t>(s.gPref[pref::kLastIndex], -1, Settings::kPrefLast);
    const std::int64_t lastStr = std::clamp<std::int64_t>(
        PrefFile::Val(s.gPrefS[pref::kSLastIndex]), -1, Settings::kPrefSLast);
    std::string out;
    AppendPascal(out, kCurrentHeader);
    AppendU32(out, static_cast<std::uint32_t>(lastInt + 1));
    for (std::int64_t i = 0; i <= lastInt; ++i)
        AppendPascal(out, std::to_string(s.gPref[static_cast<std::size_t>(i)]));
    AppendU32(out, static_cast<std::uint32_t>(lastStr + 1));
    for (std::int64_t i = 0; i <= lastStr; ++i)
        AppendPascal(out, s.gPrefS[static_cast<std::size_t>(i)]);
    return out;
}

// ---- Val ----

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t i) {
    while (i < text.size() && IsDigit(text[i]))
        ++i;
    return i;
}

struct NumberText {
    bool negative = false;
    std::string_view intDigits;     // before the point
    std::string_view fracDigits;    // after the point
    std::string_view withExponent;  // mantissa plus exponent, for the floating-point reader
    long exponent = 0;
    bool hasExponent = false;
};

long ScanExponent(std::string_view digits, bool negative) {
    long value = 0;
    for (const char c : digits)
        value = std::min(value * 10 + (c - '0'), kExponentCap);
    return negative ? -value : value;
}

// Finds the number at the start of `text`; false when there is none.
bool ScanNumber(std::string_view text, NumberText& n) {
    std::size_t i = text.find_first_not_of(" \t");
    if (i == std::string_view::npos) return false;
    if (text[i] == '+' || text[i] == '-') n.negative = text[i++] == '-';
    const std::size_t start = i;
    i = SkipDigits(text, i);
    n.intDigits = text.substr(start, i - start);
    if (i < text.size() && text[i] == '.') {
        const std::size_t end = SkipDigits(text, i + 1);
        n.fracDigits = text.substr(i + 1, end - i - 1);
        i = end;
    }
    if (n.intDigits.empty() && n.fracDigits.empty()) return false;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        std::size_t j = i + 1;
        const bool expNegative = j < text.size() && text[j] == '-';
        if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
        const std::size_t end = SkipDigits(text, j);
        if (end > j) {
            n.exponent = ScanExponent(text.substr(j, end - j), expNegative);
            n.hasExponent = true;
            i = end;
        }
    }
    n.withExponent = text.substr(start, i - start);
    return true;
}

std::int64_t Clamped(bool negative) {
    return negative ? kMin : kMax;
}

// Exact for every 64-bit value, which a double could not hold.
std::int64_t IntegerValue(std::string_view digits, bool negative) {
    const std::uint64_t limit = negative ? std::uint64_t{1} << 63 : std::uint64_t(kMax);
    std::uint64_t acc = 0;
    for (const char c : digits) {
        const auto d = static_cast<std::uint64_t>(c - '0');
        if (acc > (limit - d) / 10) return Clamped(negative);
        acc = acc * 10 + d;
    }
    if (!negative) return static_cast<std::int64_t>(acc);
    return acc == (std::uint64_t{1} << 63) ? kMin : -static_cast<std::int64_t>(acc);
}

// Power of ten of the leading non-zero digit; false when every digit is zero.
bool DecimalMagnitude(const NumberText& n, long& magnitude) {
    const std::size_t lead = n.intDigits.find_first_not_of('0');
    if (lead != std::string_view::npos) {
        const auto digits =
            static_cast<long>(std::min<std::size_t>(n.intDigits.size() - lead, kExponentCap));
        magnitude = digits - 1 + n.exponent;
        return true;
    }
    const std::size_t frac = n.fracDigits.find_first_not_of('0');
    if (frac == std::string_view::npos) return false;
    magnitude = -static_cast<long>(std::min<std::size_t>(frac, kExponentCap)) - 1 + n.exponent;
    return true;
}

std::int64_t ScaledValue(const NumberText& n) {
    long magnitude = 0;
    if (!DecimalMagnitude(n, magnitude) || magnitude < 0) return 0;
    if (magnitude > 18) return Clamped(n.negative);
    double value = 0;
    const char* end = n.withExponent.data() + n.withExponent.size();
    if (std::from_chars(n.withExponent.data(), end, value).ec != std::errc()) return 0;
    value = std::trunc(value);
    if (value >= 9223372036854775808.0) return Clamped(n.negative);
    const auto whole = static_cast<std::int64_t>(value);
    return n.negative ? -whole : whole;
}

bool IsFolder(const std::filesystem::path& folder) {
    std::error_code ec;
    return !folder.empty() && std::filesystem::is_directory(folder, ec);
}

}  // namespace

std::filesystem::path PrefFile::DefaultFolder() {
    const std::filesystem::path base = XdgDirs::ConfigHome();
    return base.empty() ? base : base / kFolderName;
}

LoadResult PrefFile::LoadPref(Settings& s, const std::filesystem::path& folder,
                              std::int64_t highlight) {
    if (folder.empty()) return LoadResult::Unreadable;
    std::error_code ec;
    const auto status = std::filesystem::status(folder, ec);
    if (status.type() == std::filesystem::file_type::not_found) {
        std::filesystem::create_directories(folder, ec);
        return ec ? LoadResult::Unreadable : LoadResult::FolderCreated;
    }
    if (!std::filesystem::is_directory(status)) return LoadResult::Unreadable;
    std::string bytes;
    const int err = gReadFileHead(folder / kFileName, kSmallFileLimit, bytes);
    if (err == ENOENT) return LoadResult::NoFile;
    if (err != 0) return LoadResult::Unreadable;
    Parse(s, bytes, highlight);
    return LoadResult::Loaded;
}

bool PrefFile::SavePref(const Settings& s, const std::filesystem::path& folder) {
    if (!IsFolder(folder)) return false;
    return gWriteFileAtomic(folder / kFileName, Serialize(s));
}

std::int64_t PrefFile::Val(std::string_view text) {
    NumberText n;
    if (!ScanNumber(text, n)) return 0;
    return n.hasExponent ? ScaledValue(n) : IntegerValue(n.intDigits, n.negative);
}

}  // namespace lumivex
