#pragma once
// The contextual menu of a sidebar row: a volume the user can take out offers to eject it.
// Other rows have no menu. No Qt.
#include <string>
#include <string_view>
#include <vector>

#include "model/RowRecord.h"

namespace lumivex {

class SidebarMenu {
  public:
    static constexpr std::string_view kEject = "取り出す";

    // The menu's item texts for `row`, as seen by `user`; empty for no menu.
    static std::vector<std::string> Items(const RowRecord& row, std::string_view user);
};

}  // namespace lumivex
