#pragma once
// One line of the kernel's mount table, with the escapes of its path fields decoded.
#include <string>

namespace lumivex {

struct MountEntry {
    int mountId = 0;
    unsigned major = 0;  // device numbers; 0 major for pseudo and network file systems
    unsigned minor = 0;
    std::string root;        // the part of the file system that is mounted ("/" for all of it)
    std::string mountPoint;  // absolute path
    std::string fsType;
    std::string source;  // "/dev/sdb1", "tmpfs", "server:/share", ...

    bool operator==(const MountEntry&) const = default;
};

}  // namespace lumivex
