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
        {"volume", "/media/CARD", true},
        {"volume", "/run/media/ann/CANON", true},
        {"volume", "/run/media/bob/OTHER", false},  // another user's
        {"volume", "/", false},
        {"volume", "/media", false},  // the folder itself is no volume
        {"volume", "/mnt/backup", false},
        {"volume", "/home", false},
        {"folder", "/media/ann/EOS DIGITAL/DCIM", false},  // a folder on the card
        {"デスクトップ", "", false},                       // the group row
    };
    for (const auto& c : cases) {
        RowRecord row;
        row.kind = c.path[0] == '\0' ? "group" : "item";
        row.vofo = c.vofo;
        row.path = c.path;
        const std::vector<std::string> items = SidebarMenu::Items(row, "ann");
        EXPECT_EQ(items,
                  c.eject ? std::vector<std::string>{"取り出す"} : std::vector<std::string>{})
            << c.path;
    }
}

}  // namespace
}  // namespace lumivex
