#pragma once
// The mounted file systems as /proc/self/mountinfo lists them. Two tables taken at different
// times compare entry by entry, which is how a mount or an unmount is noticed.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/MountEntry.h"

namespace lumivex {

class MountTable {
  public:
    // Bounds for a table read from a file: far above any real system (a few hundred mounts),
    // and what keeps a runaway container host from costing unbounded memory.
    static constexpr std::size_t kMaxBytes = std::size_t{4} << 20;
    static constexpr std::size_t kMaxEntries = 20000;

    // Lines that do not have the mountinfo shape are skipped.
    static MountTable Parse(std::string_view text);
    // The live table; empty when the file cannot be read.
    static MountTable Read(const std::filesystem::path& file = "/proc/self/mountinfo");
    // "\040" and the other three-digit octal escapes the kernel writes; anything else as is.
    static std::string Unescape(std::string_view field);

    const std::vector<MountEntry>& Entries() const { return entries_; }
    // The last entry mounted on `mountPoint` (the one on top), or nullptr.
    const MountEntry* Find(std::string_view mountPoint) const;

    bool operator==(const MountTable&) const = default;

  private:
    static bool ParseLine(std::string_view line, MountEntry& entry);

    std::vector<MountEntry> entries_;
};

}  // namespace lumivex
