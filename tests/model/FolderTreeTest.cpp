// The sidebar's tree: the top-level layout, what is hidden at every depth, links, the
// subfolder and picture marks, children that load once, and the search for a camera card.
#include <gtest/gtest.h>

#include "CameraFiles.h"
#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/CameraSearch.h"
#include "model/FolderTree.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

// The rows below `row`, asked for and answered at once, as a worker would.
RowRecord::Rows& Children(FolderTree& tree, RowRecord& row) {
    tree.AskChildren(row);
    tree.Settle();
    return *row.children;
}

Names NamesOf(const RowRecord::Rows& rows, std::size_t from = 0) {
    Names names;
    for (std::size_t i = from; i < rows.size(); ++i)
        names.push_back(rows[i]->name);
    return names;
}

class FolderTreeTest : public ::testing::Test {
  protected:
    void SetUp() override {
        prefs_.InitAll();
        desk_.Dirs({"b/x", "b/tmp/deep", "b/var", "b/.dot", "b/y.app", "b/Trash", "A", "a2",
                    ".hidden", "Tools.app", "Mail.APP", "Trash", "tmp", "var", "etc", "Network",
                    "automount", "Desktop Folder", "trash"});
        desk_.Text("file.txt");
        desk_.Text("notes.jpg/inside.txt");  // a folder whose name looks like a picture
        elsewhere_.Dirs({"Target/sub"});
        fs::create_symlink(elsewhere_.Path("Target"), desk_.Path("link"));
        fs::create_symlink(elsewhere_.Path("missing"), desk_.Path("dangling"));
        fs::create_symlink(desk_.Path("file.txt"), desk_.Path("filelink"));
    }
    FolderTree Tree(bool markExif = true, bool noThumb = false) const {
        FolderTreeOptions o = FolderTreeOptions::FromSettings(prefs_);
        o.desktop = desk_.Path();
        o.markExif = markExif;
        o.noThumb = noThumb;
        return FolderTree(o);
    }
    const Names shown_{"A", "a2", "b", "Target", "notes.jpg", "trash"};
    Settings prefs_;
    test::ScratchTree desk_, elsewhere_;
};

TEST_F(FolderTreeTest, TopLevelIsGroupThenVolumesThenShownDesktopFolders) {
    FolderTree tree = Tree();
    tree.MakeTable({elsewhere_.Str(), "/"});
    tree.Settle();
    const RowRecord::Rows& rows = tree.DataArray();
    ASSERT_EQ(rows.size(), 3 + shown_.size());
    const RowRecord& group = *rows[0];
    EXPECT_EQ(std::tie(group.kind, group.vofo, group.name, group.path),
              std::make_tuple("group", "デスクトップ", "デスクトップ", ""));
    EXPECT_FALSE(group.IsExpandable());
    EXPECT_EQ(std::tie(rows[1]->vofo, rows[1]->path), std::make_tuple("volume", elsewhere_.Str()));
    // Byte order of the entries' own names: the link sorts as "link", shows as its target.
    EXPECT_EQ(NamesOf(rows, 3), shown_);
    EXPECT_EQ(std::tie(rows[6]->alias, rows[6]->isLeaf, rows[6]->path),
              std::make_tuple("true", "false", fs::canonical(elsewhere_.Path("Target")).string()));
    EXPECT_EQ(std::tie(rows[5]->alias, rows[5]->path), std::make_tuple("false", desk_.Str("b")));
}

TEST_F(FolderTreeTest, ChildrenLoadOnceAndHideTheSameNamesAtEveryDepth) {
    FolderTree tree = Tree();
    tree.MakeTable({});
    RowRecord& b = *tree.DataArray()[3];
    EXPECT_EQ(NamesOf(Children(tree, b)), Names{"x"});
    desk_.Dirs({"b/new"});
    EXPECT_EQ(NamesOf(Children(tree, b)), Names{"x"});  // never refreshed
    tree.MakeTable({});
    EXPECT_EQ(NamesOf(Children(tree, *tree.DataArray()[3])), (Names{"new", "x"}));
}

TEST_F(FolderTreeTest, SubfolderMarkCountsHiddenNamesButNotPackagesOrDots) {
    desk_.Dirs({"onlytmp/tmp", "pkg/Z.app", "pkg/.git", "empty", "linked"});
    fs::create_symlink(elsewhere_.Path("Target"), desk_.Path("linked/to"));
    const std::pair<const char*, bool> cases[] = {{"onlytmp", true}, {"pkg", false},
                                                  {"empty", false},  {"linked", true},
                                                  {"b/x", false},    {"missing", false}};
    for (const auto& [folder, has] : cases)
        EXPECT_EQ(FolderTree::HasSubFolder(desk_.Str(folder)), has) << folder;

    // A folder whose only subfolder is hidden offers to open, and opens empty.
    FolderTree tree = Tree();
    tree.MakeTable({});
    tree.Settle();
    RowRecord& onlytmp = *tree.DataArray().at(tree.TopIndexOfPath(desk_.Str("onlytmp")));
    EXPECT_TRUE(onlytmp.IsExpandable());
    EXPECT_TRUE(Children(tree, onlytmp).empty());
}

TEST_F(FolderTreeTest, ExifMarkReadsOnlyDirectPictures) {
    test::ScratchTree pics;
    fixtures::WriteCameraFolder(pics.Path("withthumb"), {"IMG_0001.JPG"});
    pics.Text("withthumb/zz.txt");
    fixtures::WriteCameraFolder(pics.Path("nothumb"), {"IMG_0002.jpg"}, 0);
    fixtures::WriteCameraFolder(pics.Path("nested/100CANON"), {"IMG_0003.JPG"});
    fixtures::WriteCameraFolder(pics.Path("wrongext"), {"IMG_0004.txt"});
    pics.Text("broken/IMG_0005.JPG", "\xFF\xD8\xFF\xE1\xFF\xFF garbage");
    pics.Dirs({"dironly/fake.jpg"});
    const struct {
        const char* folder;
        bool markExif, noThumb;
        const char* exif;
    } cases[] = {
        {"withthumb", true, false, "true"}, {"withthumb", false, false, "false"},
        {"nothumb", true, false, "false"},  {"nothumb", true, true, "true"},
        {"nested", true, false, "false"},   {"wrongext", true, false, "false"},
        {"broken", true, true, "false"},    {"dironly", true, false, "false"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(
            FolderTree::HasExifFile(pics.Str(c.folder), Tree(c.markExif, c.noThumb).Options()),
            c.exif)
            << c.folder << " " << c.markExif << c.noThumb;
}

TEST(CameraSearchTest, ThreeDigitsStartAnImageFolder) {
    for (const char* name : {"100CANON", "101_PANA", "000", "999abc"})
        EXPECT_TRUE(CameraSearch::AutoSelect2(name)) << name;
    for (const char* name : {"", "10", "10A", "A100", " 100", "１２３", "CANONMSC"})
        EXPECT_FALSE(CameraSearch::AutoSelect2(name)) << name;
}

// The camera search: which volume wins, which folder in it, and what does not count. The
// rows on the way are loaded from what the search read.
TEST_F(FolderTreeTest, CameraSearchTakesTheFirstVolumeInListOrderWithANumberedFolder) {
    test::ScratchTree plain, noNumbers, card, second;
    plain.Dirs({"Documents", "dcim/100low"});  // the name must be exactly "DCIM"
    noNumbers.Dirs({"DCIM/CANONMSC", "DCIM/.100hidden", "MISC"});
    noNumbers.Text("DCIM/100.JPG");  // a file, not a folder
    card.Dirs({"AAA", "DCIM/CANONMSC", "DCIM/102CANON", "DCIM/101CANON", "ZZZ"});
    second.Dirs({"DCIM/100OTHER"});
    desk_.Dirs({"card/DCIM/100DESK"});  // a Desktop folder is not a volume
    FolderTree tree = Tree();
    auto search = [&](const std::vector<std::string>& volumes) {
        tree.MakeTable(volumes);
        tree.Settle();
        tree.AskCamera();
        return tree.Settle();
    };
    auto found = search({plain.Str(), noNumbers.Str(), card.Str(), second.Str()});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->dcim->path, card.Str("DCIM"));
    EXPECT_EQ(found->folder->path, card.Str("DCIM/101CANON"));
    EXPECT_EQ(NamesOf(*found->volume->children), (Names{"AAA", "DCIM", "ZZZ"}));

    // "DCIM" without numbered folders, an unreadable path, no volumes: nothing.
    EXPECT_FALSE(search({plain.Str(), noNumbers.Str(), plain.Str("gone")}));

    // A linked DCIM is searched through, and the row path is the link's target, as shown.
    test::ScratchTree linked, target;
    target.Dirs({"100LINK"});
    fs::create_symlink(target.Path(), linked.Path("DCIM"));
    found = search({linked.Str()});
    ASSERT_TRUE(found);
    const fs::path real = fs::canonical(target.Path());
    EXPECT_EQ(std::tie(found->dcim->path, found->dcim->alias),
              std::make_tuple(real.string(), "true"));
    EXPECT_EQ(found->folder->path, (real / "100LINK").string());
}

}  // namespace
}  // namespace lumivex
