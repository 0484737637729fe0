#pragma once
// File-system labels as udev publishes them: one symbolic link per label in /dev/disk/by-label,
// named after the label (unsafe bytes written as "\xHH") and pointing at the device.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumivex {

class DiskLabels {
  public:
    // More labelled file systems than any machine has; a bound on a directory we do not own.
    static constexpr std::size_t kMaxLabels = 4096;

    // Reads the folder once; a missing folder gives no labels.
    explicit DiskLabels(const std::filesystem::path& folder = "/dev/disk/by-label");

    // The label of the file system on `device` ("/dev/sdb1", or a link to it such as
    // "/dev/disk/by-uuid/..."); "" when it has none.
    std::string LabelOf(const std::string& device) const;

    // "\x20" and the other two-hex-digit escapes of udev; anything else as is.
    static std::string Decode(std::string_view name);

  private:
    std::vector<std::pair<std::string, std::filesystem::path>> labels_;  // label, device
};

}  // namespace lumivex
