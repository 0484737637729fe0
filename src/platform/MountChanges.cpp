#include "platform/MountChanges.h"

#include <map>
#include <string_view>

namespace lumivex {
namespace {

// The top entry of each mount point: later lines of the table cover earlier ones.
std::map<std::string_view, const MountEntry*> TopEntries(const MountTable& table) {
    std::map<std::string_view, const MountEntry*> top;
    for (const MountEntry& e : table.Entries())
        top[e.mountPoint] = &e;
    return top;
}

}  // namespace

MountChanges MountChanges::Between(const MountTable& before, const MountTable& after) {
    const auto old = TopEntries(before);
    const auto now = TopEntries(after);
    MountChanges changes;
    // Both maps iterate in mount-point order, so the lists come out sorted.
    for (const auto& [point, entry] : old) {
        const auto it = now.find(point);
        if (it == now.end() || it->second->mountId != entry->mountId)
            changes.unmounted.push_back(*entry);
    }
    for (const auto& [point, entry] : now) {
        const auto it = old.find(point);
        if (it == old.end() || it->second->mountId != entry->mountId)
            changes.mounted.push_back(*entry);
    }
    return changes;
}

}  // namespace lumivex
