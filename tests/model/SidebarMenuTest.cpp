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
        {"volume", "/media/ann/EOS DIGITAL", true},
        {"volume", "/run/media/ann/CANON", true},
        {"volume", "/run/media/bob/OTHER", false},  // another user's
        {"volume", "/", false},
        {"volume", "/media", false},                       // the folder itself is no volume
        {"folder", "/media/ann/EOS DIGITAL/DCIM", false},  // a folder on the card
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
