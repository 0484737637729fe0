#pragma once
// The set of file-name extensions that count as image candidates, taken once from the
// settings so that a scan worker can keep its own copy instead of reading shared settings.
#include <string>
#include <string_view>
#include <vector>

namespace lumivex {

class Settings;

class ExtensionFilter {
  public:
    // An empty filter: accepts nothing.
    ExtensionFilter() = default;
    // Copies the extensions of every enabled group (lower-cased, empty ones dropped).
    explicit ExtensionFilter(const Settings& prefs);

    // True when the last "."-field of `name` (the whole name when it has no dot) is one of
    // the extensions, ignoring ASCII letter case. An empty field never matches.
    bool Accepts(std::string_view name) const;

  private:
    void AddGroup(std::string_view group);

    std::vector<std::string> extensions_;
};

}  // namespace lumivex
