#include "core/ExtensionFilter.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "core/Globals.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

// The text between the first and the second ":" ("" when there is no ":").
std::string_view SecondColonField(std::string_view group) {
    const std::size_t first = group.find(':');
    if (first == std::string_view::npos) return {};
    const std::string_view rest = group.substr(first + 1);
    return rest.substr(0, rest.find(':'));
}

}  // namespace

ExtensionFilter::ExtensionFilter(const Settings& prefs) {
    // The count is bounded when the file is read; this keeps a value set in memory in range.
    const std::int64_t groups =
        std::min<std::int64_t>(prefs.gPref[pref::kGroupCount], pref::kMaxGroups);
    for (std::size_t n = 1; std::cmp_less_equal(n, groups); ++n) {
        if (prefs.gPref[pref::GroupSwitch(n)] != 1) continue;
        AddGroup(SecondColonField(prefs.gPrefS[pref::SGroup(n)]));
    }
}

void ExtensionFilter::AddGroup(std::string_view group) {
    while (true) {
        const std::size_t semi = group.find(';');
        const std::string_view extn = group.substr(0, semi);
        if (!extn.empty()) extensions_.push_back(gLowerAscii(extn));
        if (semi == std::string_view::npos) break;
        group.remove_prefix(semi + 1);
    }
}

bool ExtensionFilter::Accepts(std::string_view name) const {
    const std::size_t dot = name.rfind('.');
    const std::string_view field = dot == std::string_view::npos ? name : name.substr(dot + 1);
    if (field.empty()) return false;
    return std::any_of(extensions_.begin(), extensions_.end(),
                       [field](const std::string& extn) { return gEqualNoCase(field, extn); });
}

}  // namespace lumivex
