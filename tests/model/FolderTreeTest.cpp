// The sidebar's tree: the top-level layout, what is hidden at every depth, links, the
// subfolder and picture marks, and children that load once.
#include <gtest/gtest.h>

#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/FolderTree.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Names(const RowRecord::Rows& rows, std::size_t from = 0) {
    std::vector<std::string> names;
    for (std::size_t i = from; i < rows.size(); ++i)
        names.push_back(rows[i]->name);
    return names;
}

class FolderTreeTest : public ::testing::Test {
  protected:
    void SetUp() override {
        prefs_.InitAll();
        desk_.Dirs(
            {"b/x", "b/tmp/deep", "b/var",   "b/etc",     "b/.dot",         "b/y.app", "b/Trash",
             "A",   "a2",         ".hidden", "Tools.app", "Mail.APP",       "Trash",   "tmp",
             "var", "etc",        "Network", "automount", "Desktop Folder", "trash"});
        desk_.Text("file.txt");
        desk_.Text("notes.jpg/inside.txt");  // a folder whose name looks like a picture
        elsewhere_.Dirs({"Target/sub"});
        desk_.Link(elsewhere_.Path("Target"), "link");
        desk_.Link(elsewhere_.Path("missing"), "dangling");
        desk_.Link(desk_.Path("file.txt"), "filelink");
    }
    FolderTree Tree(bool markExif = true, bool noThumb = false) const {
        FolderTreeOptions o = FolderTreeOptions::FromSettings(prefs_);
        o.desktop = desk_.Path();
        o.markExif = markExif;
        o.noThumb = noThumb;
        return FolderTree(o);
    }

    Settings prefs_;
    test::ScratchTree desk_, elsewhere_;
};

TEST_F(FolderTreeTest, TopLevelIsGroupThenVolumesThenShownDesktopFolders) {
    test::ScratchTree card;
    card.Dirs({"DCIM"});
    FolderTree tree = Tree();
    tree.MakeTable({card.Str(), "/"});
    const RowRecord::Rows& rows = tree.DataArray();
    ASSERT_GE(rows.size(), 3u);
    const RowRecord& group = *rows[0];
    EXPECT_EQ(group.kind, "group");
    EXPECT_EQ(group.vofo, "デスクトップ");
    EXPECT_EQ(group.name, "デスクトップ");
    EXPECT_EQ(group.path, "");
    EXPECT_EQ(group.exif, "");
    EXPECT_EQ(group.isLeaf, "false");
    EXPECT_FALSE(group.IsExpandable());
    EXPECT_EQ(rows[1]->vofo, "volume");
    EXPECT_EQ(rows[1]->path, card.Str());
    EXPECT_EQ(rows[1]->name, card.Path().filename().string());
    EXPECT_EQ(rows[2]->path, "/");
    EXPECT_EQ(rows[2]->kind, "item");
    // Byte order of the entries' own names: the link sorts as "link", shows as its target.
    EXPECT_EQ(Names(rows, 3),
              (std::vector<std::string>{"A", "a2", "b", "Target", "notes.jpg", "trash"}));
    for (std::size_t i = 3; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i]->vofo, "folder");
        EXPECT_EQ(rows[i]->expand, "false");
        EXPECT_FALSE(rows[i]->children.has_value());
    }
}

TEST_F(FolderTreeTest, HidingRulesHoldAtEveryDepth) {
    FolderTree tree = Tree();
    tree.MakeTable({});
    RowRecord& b = *tree.DataArray()[3];
    ASSERT_EQ(b.name, "b");
    EXPECT_EQ(Names(tree.GetChild(b)), std::vector<std::string>{"x"});
    for (const char* name :
         {"Desktop Folder", "Trash", "automount", "Network", "var", "etc", "tmp"})
        EXPECT_FALSE(FolderTree::MakeListDisp(name)) << name;
    for (const char* name : {"trash", "TMP", "tmp2", "Desktop", "", "DCIM"})
        EXPECT_TRUE(FolderTree::MakeListDisp(name)) << name;
}

TEST_F(FolderTreeTest, ALinkCarriesItsTargetsPathAndIsAnAlias) {
    FolderTree tree = Tree();
    tree.MakeTable({});
    const RowRecord& link = *tree.DataArray()[4];
    EXPECT_EQ(link.alias, "true");
    EXPECT_EQ(link.path, fs::canonical(elsewhere_.Path("Target")).string());
    EXPECT_EQ(link.name, "Target");
    EXPECT_EQ(link.isLeaf, "false");
    EXPECT_EQ(tree.DataArray()[3]->alias, "false");
    EXPECT_EQ(tree.DataArray()[3]->path, desk_.Str("b"));
}

TEST_F(FolderTreeTest, SubfolderMarkCountsHiddenNamesButNotPackagesOrDots) {
    desk_.Dirs({"onlytmp/tmp", "pkg/Z.app", "pkg/.git", "empty", "linked"});
    desk_.Text("pkg/readme.txt");
    desk_.Link(elsewhere_.Path("Target"), "linked/to");
    const struct {
        const char* folder;
        bool has;
    } cases[] = {{"onlytmp", true}, {"pkg", false}, {"empty", false},
                 {"linked", true},  {"b/x", false}, {"missing", false}};
    for (const auto& c : cases)
        EXPECT_EQ(FolderTree::HasSubFolder(desk_.Str(c.folder)), c.has) << c.folder;

    // A folder whose only subfolder is hidden offers to open, and opens empty.
    FolderTree tree = Tree();
    tree.MakeTable({});
    RowRecord* onlytmp = nullptr;
    for (const auto& row : tree.DataArray())
        if (row->name == "onlytmp") onlytmp = row.get();
    ASSERT_NE(onlytmp, nullptr);
    EXPECT_EQ(onlytmp->isLeaf, "false");
    EXPECT_TRUE(tree.GetChild(*onlytmp).empty());
}

TEST_F(FolderTreeTest, ExifMarkReadsOnlyDirectPictures) {
    test::ScratchTree pics;
    pics.Picture("withthumb/IMG_0001.JPG");
    pics.Text("withthumb/zz.txt");
    pics.Picture("nothumb/IMG_0002.jpg", false);
    pics.Picture("nested/100CANON/IMG_0003.JPG");
    pics.Picture("wrongext/IMG_0004.txt");
    pics.Text("broken/IMG_0005.JPG", "\xFF\xD8\xFF\xE1\xFF\xFF garbage");
    pics.Dirs({"dironly/fake.jpg"});
    const struct {
        const char* folder;
        bool markExif, noThumb;
        const char* exif;
    } cases[] = {
        {"withthumb", true, false, "true"}, {"withthumb", false, false, "false"},
        {"nothumb", true, false, "false"},  {"nothumb", true, true, "true"},
        {"nested", true, false, "false"},   {"nested/100CANON", true, false, "true"},
        {"wrongext", true, false, "false"}, {"broken", true, true, "false"},
        {"dironly", true, false, "false"},  {"gone", true, false, "false"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Tree(c.markExif, c.noThumb).HasExifFile(pics.Str(c.folder)), c.exif)
            << c.folder << " " << c.markExif << c.noThumb;

    // The switch off marks nothing, even a folder full of pictures.
    desk_.Picture("b/IMG_0001.JPG");
    for (bool mark : {true, false}) {
        FolderTree tree = Tree(mark);
        tree.MakeTable({});
        EXPECT_EQ(tree.DataArray()[3]->exif, mark ? "true" : "false");
    }
}

TEST_F(FolderTreeTest, ChildrenLoadOnceAndAreNotRefreshed) {
    FolderTree tree = Tree();
    tree.MakeTable({});
    RowRecord& b = *tree.DataArray()[3];
    EXPECT_FALSE(b.children.has_value());
    RowRecord::Rows& first = tree.GetChild(b);
    EXPECT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0]->parent, &b);
    EXPECT_EQ(first[0]->path, desk_.Str("b/x"));
    desk_.Dirs({"b/new"});
    EXPECT_EQ(&tree.GetChild(b), &first);
    EXPECT_EQ(Names(tree.GetChild(b)), std::vector<std::string>{"x"});
    tree.MakeTable({});
    EXPECT_EQ(Names(tree.GetChild(*tree.DataArray()[3])), (std::vector<std::string>{"new", "x"}));
}

TEST_F(FolderTreeTest, LinkLoopsNeitherHangNorShow) {
    desk_.Link(desk_.Path("selfloop"), "selfloop");
    desk_.Link(desk_.Path(), "b/x/up");  // a way back to the Desktop, three levels down
    FolderTree tree = Tree();
    tree.MakeTable({});
    EXPECT_EQ(Names(tree.DataArray(), 1),
              (std::vector<std::string>{"A", "a2", "b", "Target", "notes.jpg", "trash"}));
    RowRecord& x = *tree.GetChild(*tree.DataArray()[3])[0];
    ASSERT_EQ(tree.GetChild(x).size(), 1u);
    RowRecord& up = *tree.GetChild(x)[0];
    EXPECT_EQ(up.alias, "true");
    EXPECT_EQ(up.path, fs::canonical(desk_.Path()).string());
    EXPECT_EQ(Names(tree.GetChild(up)), Names(tree.DataArray(), 1));
}

TEST_F(FolderTreeTest, WithoutADesktopThereAreNoFolderRows) {
    FolderTreeOptions o;
    FolderTree tree(o);
    tree.MakeTable({"/"});
    EXPECT_EQ(tree.DataArray().size(), 2u);
    EXPECT_EQ(tree.DataArray()[1]->path, "/");
    EXPECT_EQ(tree.DataArray()[1]->name, "/");
}

TEST_F(FolderTreeTest, MountEventsInsertAfterTheLastVolumeAndRemoveByPath) {
    FolderTree tree = Tree();
    tree.MakeTable({"/v1", "/v2"});
    EXPECT_EQ(tree.InsertVolumeRow(elsewhere_.Str()), 3);
    EXPECT_EQ(tree.DataArray()[3]->vofo, "volume");
    EXPECT_EQ(tree.DataArray()[4]->name, "A");
    int index = 0;
    std::unique_ptr<RowRecord> removed = tree.RemoveRowOfPath("/v1", index);
    ASSERT_NE(removed, nullptr);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(tree.DataArray()[1]->path, "/v2");
    EXPECT_EQ(tree.RemoveRowOfPath("/none", index), nullptr);
    EXPECT_EQ(index, -1);
    tree.MakeTable({});
    EXPECT_EQ(tree.InsertVolumeRow("/v3"), -1);  // no volume row to follow
}

}  // namespace
}  // namespace lumivex
