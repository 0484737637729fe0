#pragma once
// Notices mounts and unmounts. The kernel flags the open mount-table file with POLLPRI and
// POLLERR each time the table changes, so a caller waits on Fd() for an exception event (no
// timer, no polling) and then asks Check() what changed. Qt-free: the window wires the
// descriptor to its event loop.
#include <filesystem>

#include "platform/MountChanges.h"
#include "platform/MountTable.h"

namespace lumivex {

class MountMonitor {
  public:
    explicit MountMonitor(std::filesystem::path file = "/proc/self/mountinfo");
    ~MountMonitor();
    MountMonitor(const MountMonitor&) = delete;
    MountMonitor& operator=(const MountMonitor&) = delete;

    // The descriptor to watch; -1 when the file could not be opened.
    int Fd() const { return fd_; }
    // Reads the table again and reports what changed since the last reading. A table that
    // reads empty is a failed read (a live system always has "/"): no change, and the last
    // table stays, so that a read error never looks like every disk being pulled.
    MountChanges Check();
    const MountTable& Last() const { return last_; }

  private:
    std::filesystem::path file_;
    int fd_ = -1;
    MountTable last_;
};

}  // namespace lumivex
