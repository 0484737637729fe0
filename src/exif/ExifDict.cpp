#include "exif/ExifDict.h"

#include <array>
#include <cmath>
#include <limits>

namespace lumivex {
namespace {

// Byte values with ASCII capitals folded to small letters.
constexpr std::array<unsigned char, 256> MakeFold() {
    std::array<unsigned char, 256> t{};
    for (int i = 0; i < 256; ++i)
        t[i] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i - 'A' + 'a' : i);
    return t;
}
constexpr auto kFold = MakeFold();

std::uint32_t FoldedHash(std::string_view key) {
    std::uint32_t h = 2166136261u;  // FNV-1a
    for (const char c : key)
        h = (h ^ kFold[static_cast<unsigned char>(c)]) * 16777619u;
    return h;
}

}  // namespace

bool ExifDict::EqualKeys(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (kFold[static_cast<unsigned char>(a[i])] != kFold[static_cast<unsigned char>(b[i])])
            return false;
    return true;
}

std::size_t ExifDict::Lookup(std::string_view key, std::uint32_t hash) const {
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (items_[i].hash == hash && EqualKeys(items_[i].key, key)) return i;
    return items_.size();
}

void ExifDict::Set(std::string_view key, ExifValue value) {
    const std::uint32_t hash = FoldedHash(key);
    const std::size_t i = Lookup(key, hash);
    if (i < items_.size()) {
        items_[i].value = std::move(value);
    } else {
        items_.push_back(Item{std::string(key), std::move(value), hash});
    }
}

const ExifValue* ExifDict::Find(std::string_view key) const {
    const std::size_t i = Lookup(key, FoldedHash(key));
    return i < items_.size() ? &items_[i].value : nullptr;
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
    constexpr double kMax = 9.2233720368547758e18;  // 2^63, the first double out of range
    if (value >= kMax) return std::numeric_limits<std::int64_t>::max();
    if (value <= -kMax) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(value);
}

}  // namespace lumivex
