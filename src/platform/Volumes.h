#pragma once
// The volumes the sidebar lists, and in which order. One module-global list of mount paths,
// rebuilt from nothing each time the folder tree is built. Main thread only.
#include <string>
#include <string_view>
#include <vector>

#include "platform/MountTable.h"

namespace lumivex {

class DiskLabels;

namespace Volumes {

// The display modes of the volume list (the volume display setting).
inline constexpr int kHideSystemAndBackup = 0;
inline constexpr int kHideSystem = 1;
inline constexpr int kShowAll = 2;

// True for the mounts a user calls a disk: "/", anything mounted under /media/ or
// /run/media/<user>/ whatever its file system, and block devices mounted under /mnt/.
bool IsUserVolume(const MountEntry& entry, std::string_view user);

// True for a mount a user can take out: one under /media/ or /run/media/<user>/.
bool IsRemovable(std::string_view mountPoint, std::string_view user);

// Whether a mount event concerns a row the mode lists: the kernel reports every mount,
// including the many a user never sees as a disk.
bool Shows(const MountEntry& entry, int mode, std::string_view user);

// The mount points a mode lists, sorted ascending without repeats. Modes 0 and 1 list "/" and
// the user's volumes; mode 2 lists every mount point. A pure function of its arguments.
std::vector<std::string> ShownMountPoints(const MountTable& table, int mode, std::string_view user);

// Rebuilds the list from the live mount table, or from `table` for `user`.
void gMakeVolumeList(int mode);
void gMakeVolumeList(int mode, const MountTable& table, std::string_view user);
// The highest valid index of the list: -1 when it is empty.
int gVolumeCount();
// The mount path at `index`; "" outside the list.
std::string gGetVolumeInfo(int index);

// The name a row shows for a volume: its file-system label, else the last part of the mount
// path ("/" when the start-up disk has no label).
std::string gVolumeName(const std::string& mountPoint);
std::string VolumeName(const std::string& mountPoint, const MountTable& table,
                       const DiskLabels& labels);

// $USER, else the name of the process's user; "" when neither is known.
std::string CurrentUser();

}  // namespace Volumes
}  // namespace lumivex
