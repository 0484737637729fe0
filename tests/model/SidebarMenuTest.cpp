// Which sidebar rows offer to eject their volume.
#include <gtest/gtest.h>

#include "model/SidebarMenu.h"

namespace lumivex {
namespace {

TEST(SidebarMenuTest, OnlyVolumesUnderTheRemovableMediaFoldersOfferToEject) {
    const struct {
        const char* vofo;
        const char* path;
        bool eject;
    } cases[] = {
        // Which mounts are removable media is the volume list's rule; here only that it is asked.
        {"volume", "/run/media/ann/CANON", true},
        {"volume", "/", false},
        {"folder", "/run/media/ann/CANON/DCIM", false},  // a folder on the card
    };
    for (const auto& c : cases) {
        RowRecord row;
        row.vofo = c.vofo;
        row.path = c.path;
        EXPECT_EQ(SidebarMenu::Items(row, "ann").empty(), !c.eject) << c.path;
    }
}

}  // namespace
}  // namespace lumivex
