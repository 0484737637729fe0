#include "core/ExtensionFilter.h"

#include <algorithm>
#include <cstdint>

#include "core/Globals.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

// Group n of the extension list lives in gPrefS(n) with its switch in gPref(20 + n); the
// count in gPref(20) comes from the settings file and is bounded by the string table.
constexpr std::int64_t kGroupCountSlot = 20;

// The text between the first and the second ":" ("" when there is no ":").
std::string_view SecondColonField(std::string_view group) {
    const std::size_t first = group.find(':');
    if (first == std::string_view::npos) return {};
    const std::string_view rest = group.substr(first + 1);
    return rest.substr(0, rest.find(':'));
}

}  // namespace

ExtensionFilter::ExtensionFilter(const Settings& prefs) {
    const std::int64_t groups =
        std::min<std::int64_t>(prefs.gPref[kGroupCountSlot], Settings::kPrefSLast);
    for (std::int64_t n = 1; n <= groups; ++n) {
        if (prefs.gPref[static_cast<std::size_t>(kGroupCountSlot + n)] != 1) continue;
        AddGroup(SecondColonField(prefs.gPrefS[static_cast<std::size_t>(n)]));
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
