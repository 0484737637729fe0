#include "platform/MountMonitor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace lumivex {

MountMonitor::MountMonitor(std::filesystem::path file) : file_(std::move(file)) {
    do {
        fd_ = ::open(file_.c_str(), O_RDONLY | O_CLOEXEC);
    } while (fd_ < 0 && errno == EINTR);
    // Open before reading: a change that lands in between is then either in the first table
    // or flags the descriptor, never lost.
    last_ = MountTable::Read(file_);
}

MountMonitor::~MountMonitor() {
    if (fd_ >= 0) ::close(fd_);
}

MountChanges MountMonitor::Check() {
    MountTable now = MountTable::Read(file_);
    if (now.Entries().empty()) return {};
    MountChanges changes = MountChanges::Between(last_, now);
    last_ = std::move(now);
    return changes;
}

}  // namespace lumivex
