#include "model/SidebarMenu.h"

#include "platform/Volumes.h"

namespace lumivex {

std::vector<std::string> SidebarMenu::Items(const RowRecord& row, std::string_view user) {
    if (row.vofo != "volume" || !Volumes::IsRemovable(row.path, user)) return {};
    return {std::string(kEject)};
}

}  // namespace lumivex
