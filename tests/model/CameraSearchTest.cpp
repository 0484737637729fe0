// The camera search: which volume wins, which folder in it, and what does not count.
#include <gtest/gtest.h>

#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/CameraSearch.h"
#include "model/FolderTree.h"

namespace lumivex {
namespace {

TEST(CameraSearchTest, ThreeDigitsStartAnImageFolder) {
    for (const char* name : {"100CANON", "101_PANA", "000", "999abc"})
        EXPECT_TRUE(CameraSearch::AutoSelect2(name)) << name;
    for (const char* name : {"", "10", "10A", "A100", " 100", "１２３", "CANONMSC"})
        EXPECT_FALSE(CameraSearch::AutoSelect2(name)) << name;
}

TEST(CameraSearchTest, FirstVolumeInListOrderWithANumberedFolderWins) {
    test::ScratchTree plain, noNumbers, card, second, desk;
    plain.Dirs({"Documents", "dcim/100low"});  // the name must be exactly "DCIM"
    noNumbers.Dirs({"DCIM/CANONMSC", "DCIM/.100hidden", "MISC"});
    noNumbers.Text("DCIM/100.JPG");  // a file, not a folder
    card.Dirs({"AAA", "DCIM/CANONMSC", "DCIM/102CANON", "DCIM/101CANON", "ZZZ"});
    second.Dirs({"DCIM/100OTHER"});
    desk.Dirs({"DCIM/100DESK"});  // a Desktop folder is not a volume

    Settings prefs;
    prefs.InitAll();
    FolderTreeOptions options = FolderTreeOptions::FromSettings(prefs);
    options.desktop = desk.Path();
    FolderTree tree(options);

    tree.MakeTable({plain.Str(), noNumbers.Str(), card.Str(), second.Str()});
    auto found = CameraSearch::Find(tree.DataArray());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->volume, card.Str());
    EXPECT_EQ(found->dcim, card.Str("DCIM"));
    EXPECT_EQ(found->folder, card.Str("DCIM/101CANON"));

    // List order, not path order, decides between two cards.
    tree.MakeTable({second.Str(), card.Str()});
    found = CameraSearch::Find(tree.DataArray());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->folder, second.Str("DCIM/100OTHER"));

    // "DCIM" without numbered folders, an unreadable path, no volumes: nothing.
    tree.MakeTable({plain.Str(), noNumbers.Str(), plain.Str("gone")});
    EXPECT_FALSE(CameraSearch::Find(tree.DataArray()));
    tree.MakeTable(std::vector<std::string>{});
    EXPECT_FALSE(CameraSearch::Find(tree.DataArray()));

    // A linked DCIM is searched through, and the row path is the link's target, as shown.
    test::ScratchTree linked, target;
    target.Dirs({"100LINK"});
    linked.Link(target.Path(), "DCIM");
    found = CameraSearch::FindOnVolume(linked.Str());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->dcim, std::filesystem::canonical(target.Path()).string());
    EXPECT_EQ(found->folder, (std::filesystem::canonical(target.Path()) / "100LINK").string());
}

}  // namespace
}  // namespace lumivex
