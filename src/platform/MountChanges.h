#pragma once
// What changed between two readings of the mount table: the disks that went and the ones that
// came. Only the entry on top of each mount point counts, since that is what a path shows.
#include <vector>

#include "platform/MountEntry.h"
#include "platform/MountTable.h"

namespace lumivex {

struct MountChanges {
    std::vector<MountEntry> unmounted;  // sorted by mount point
    std::vector<MountEntry> mounted;    // sorted by mount point

    bool Empty() const { return unmounted.empty() && mounted.empty(); }

    // A mount point whose top entry has another mount id on the two sides was unmounted and
    // mounted again (a card swapped between two reads, or an over-mount); the same id with
    // other fields changed is a remount and no change.
    static MountChanges Between(const MountTable& before, const MountTable& after);
};

}  // namespace lumivex
