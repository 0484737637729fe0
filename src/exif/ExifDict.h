#pragma once
// The decoded tags of one directory: string keys compared without regard to letter case,
// each mapped to an integer, a double or a byte string. A directory holds a few dozen keys,
// so a flat list with a folded hash per key beats a tree; it also keeps the order in which
// the reader found the tags.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace lumivex {

using ExifValue = std::variant<std::int64_t, double, std::string>;

class ExifDict {
  public:
    struct Item {
        std::string key;
        ExifValue value;
        std::uint32_t hash;  // of the case-folded key
    };
    using const_iterator = std::vector<Item>::const_iterator;

    void Set(std::string_view key, ExifValue value);
    bool Has(std::string_view key) const { return Find(key) != nullptr; }
    const ExifValue* Find(std::string_view key) const;
    // A number stored as integer or double; nothing for a missing key or a string.
    std::optional<double> Number(std::string_view key) const;
    std::optional<std::int64_t> Integer(std::string_view key) const;
    void Clear() { items_.clear(); }
    bool Empty() const { return items_.empty(); }
    std::size_t Size() const { return items_.size(); }
    const_iterator begin() const { return items_.begin(); }
    const_iterator end() const { return items_.end(); }

    static bool EqualKeys(std::string_view a, std::string_view b);

  private:
    // Index of the key, or Size() when it is not there.
    std::size_t Lookup(std::string_view key, std::uint32_t hash) const;

    std::vector<Item> items_;
};

// Converts a double to an integer without undefined behaviour: NaN gives 0, values beyond
// the range saturate.
std::int64_t SaturatingInt(double value);

}  // namespace lumivex
