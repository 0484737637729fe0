#pragma once
// The decoded tags of one directory: string keys compared without regard to letter case,
// each mapped to an integer, a double or a byte string.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumivex {

using ExifValue = std::variant<std::int64_t, double, std::string>;

struct CaseInsensitiveLess {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
};

class ExifDict {
  public:
    using Map = std::map<std::string, ExifValue, CaseInsensitiveLess>;

    void Set(std::string_view key, ExifValue value);
    bool Has(std::string_view key) const { return map_.find(key) != map_.end(); }
    const ExifValue* Find(std::string_view key) const;
    // A number stored as integer or double; nothing for a missing key or a string.
    std::optional<double> Number(std::string_view key) const;
    std::optional<std::int64_t> Integer(std::string_view key) const;
    void Clear() { map_.clear(); }
    bool Empty() const { return map_.empty(); }
    std::size_t Size() const { return map_.size(); }
    Map::const_iterator begin() const { return map_.begin(); }
    Map::const_iterator end() const { return map_.end(); }

  private:
    Map map_;
};

// Converts a double to an integer without undefined behaviour: NaN gives 0, values beyond
// the range saturate.
std::int64_t SaturatingInt(double value);

}  // namespace lumivex
