#include "exif/ExifDict.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace lumivex {
namespace {

// Byte values with ASCII capitals folded to small letters; a table keeps the hot compare of
// the map to one load a byte.
constexpr std::array<unsigned char, 256> MakeFold() {
    std::array<unsigned char, 256> t{};
    for (int i = 0; i < 256; ++i)
        t[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i - 'A' + 'a' : i);
    return t;
}
constexpr auto kFold = MakeFold();

}  // namespace

bool CaseInsensitiveLess::operator()(std::string_view a, std::string_view b) const {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const unsigned char x = kFold[static_cast<unsigned char>(a[i])];
        const unsigned char y = kFold[static_cast<unsigned char>(b[i])];
        if (x != y) return x < y;
    }
    return a.size() < b.size();
}

void ExifDict::Set(std::string_view key, ExifValue value) {
    auto it = map_.lower_bound(key);
    if (it != map_.end() && !map_.key_comp()(key, it->first)) {
        it->second = std::move(value);
    } else {
        map_.emplace_hint(it, std::string(key), std::move(value));
    }
}

const ExifValue* ExifDict::Find(std::string_view key) const {
    auto it = map_.find(key);
    return it == map_.end() ? nullptr : &it->second;
}

std::optional<double> ExifDict::Number(std::string_view key) const {
    const ExifValue* v = Find(key);
    if (!v) return std::nullopt;
    if (const auto* i = std::get_if<std::int64_t>(v)) return static_cast<double>(*i);
    if (const auto* d = std::get_if<double>(v)) return *d;
    return std::nullopt;
}

std::optional<std::int64_t> ExifDict::Integer(std::string_view key) const {
    const ExifValue* v = Find(key);
    if (!v) return std::nullopt;
    if (const auto* i = std::get_if<std::int64_t>(v)) return *i;
    if (const auto* d = std::get_if<double>(v)) return SaturatingInt(*d);
    return std::nullopt;
}

std::int64_t SaturatingInt(double value) {
    if (std::isnan(value)) return 0;
    constexpr double kMax = 9.2233720368547748e18;  // 2^63, the first double out of range
    if (value >= kMax) return std::numeric_limits<std::int64_t>::max();
    if (value <= -kMax) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace lumivex
