#pragma once
// Finds camera media among the sidebar's volume rows: the first volume, in list order, with a
// "DCIM" folder that holds a numbered image folder ("100CANON", "101_PANA"). Each volume is
// looked into on its own worker, so the answers come in any order; this keeps the list order.
// No Qt.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/FolderQuestion.h"

namespace lumivex {

class CameraSearch {
  public:
    // True when the first three bytes of `name` are decimal digits.
    static bool AutoSelect2(std::string_view name);

    // A new search over `volumes` (in list order) named `id`; an earlier one is forgotten.
    void Begin(std::uint64_t id, std::vector<std::string> volumes);
    // Takes one volume's answer. The winner comes back once every volume before it has
    // answered without camera media: a volume found early waits for those above it.
    std::optional<FolderAnswer> Take(const FolderAnswer& answer);
    // A volume that went away counts as one without camera media; a find below it that was
    // waiting for it wins now.
    std::optional<FolderAnswer> Drop(const std::string& volume);

  private:
    std::optional<FolderAnswer> Decide();

    std::uint64_t id_ = 0;
    std::vector<std::string> volumes_;
    std::vector<std::optional<FolderAnswer>> answers_;  // by volume, in list order
};

}  // namespace lumivex
