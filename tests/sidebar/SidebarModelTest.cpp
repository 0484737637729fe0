// The item model over the tree: the header row, lazy children through fetchMore, the keys.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "model/FolderTree.h"
#include "sidebar/SidebarModel.h"

namespace lumivex {
namespace {

class SidebarModelTest : public ::testing::Test {
  protected:
    void SetUp() override {
        desk_.Dirs({"Pics/100CANON", "Pics/tmp", "Plain"});
        desk_.Picture("Pics/IMG_0001.JPG");
        FolderTreeOptions o;
        o.desktop = desk_.Path();
        o.filter = ExtensionFilter(Defaults());
        tree_.SetOptions(o);
        model_.Rebuild([&] { tree_.MakeTable({"/"}); });
    }
    static const Settings& Defaults() {
        static Settings s = [] {
            Settings p;
            p.InitAll();
            return p;
        }();
        return s;
    }
    QModelIndex Top(int row) const { return model_.index(row, 0); }

    test::ScratchTree desk_;
    FolderTree tree_;
    SidebarModel model_{tree_};
};

TEST_F(SidebarModelTest, HeaderRowIsNeitherSelectableNorExpandable) {
    ASSERT_EQ(model_.rowCount(), 4);  // header, "/", Pics, Plain
    const QModelIndex group = Top(0);
    EXPECT_EQ(model_.flags(group), Qt::NoItemFlags);
    EXPECT_FALSE(model_.hasChildren(group));
    EXPECT_FALSE(model_.canFetchMore(group));
    EXPECT_EQ(model_.data(group).toString(), QStringLiteral("デスクトップ"));
    EXPECT_EQ(model_.data(group, SidebarModel::KindRole).toString(), QStringLiteral("group"));
    EXPECT_TRUE(model_.flags(Top(2)) & Qt::ItemIsSelectable);
    EXPECT_TRUE(model_.flags(Top(2)) & Qt::ItemIsEnabled);
    EXPECT_EQ(model_.columnCount(), 1);
    EXPECT_FALSE(model_.index(9, 0).isValid());
    EXPECT_FALSE(model_.index(0, 1).isValid());
}

TEST_F(SidebarModelTest, ChildrenArriveThroughFetchMoreOnce) {
    const QModelIndex pics = Top(2);
    EXPECT_EQ(model_.data(pics, SidebarModel::PathRole).toString().toStdString(),
              desk_.Str("Pics"));
    EXPECT_EQ(model_.data(pics, SidebarModel::ExifRole).toString(), QStringLiteral("true"));
    EXPECT_EQ(model_.data(Top(3), SidebarModel::ExifRole).toString(), QStringLiteral("false"));
    EXPECT_TRUE(model_.hasChildren(pics));
    EXPECT_FALSE(model_.hasChildren(Top(3)));  // Plain has no subfolder
    EXPECT_EQ(model_.rowCount(pics), 0);
    ASSERT_TRUE(model_.canFetchMore(pics));

    QSignalSpy inserted(&model_, &QAbstractItemModel::rowsInserted);
    model_.fetchMore(pics);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_FALSE(model_.canFetchMore(pics));
    ASSERT_EQ(model_.rowCount(pics), 1);  // "tmp" is hidden
    const QModelIndex child = model_.index(0, 0, pics);
    EXPECT_EQ(model_.data(child).toString(), QStringLiteral("100CANON"));
    EXPECT_EQ(model_.parent(child), pics);
    EXPECT_FALSE(model_.parent(pics).isValid());
    model_.fetchMore(pics);
    EXPECT_EQ(inserted.count(), 1);
}

TEST_F(SidebarModelTest, RebuildForgetsLoadedRowsAndExpandIsRecorded) {
    model_.fetchMore(Top(2));
    EXPECT_TRUE(model_.setData(Top(2), true, SidebarModel::ExpandRole));
    EXPECT_EQ(model_.data(Top(2), SidebarModel::ExpandRole).toString(), QStringLiteral("true"));
    EXPECT_FALSE(model_.setData(Top(2), true, Qt::DisplayRole));
    QSignalSpy reset(&model_, &QAbstractItemModel::modelReset);
    model_.Rebuild([&] { tree_.MakeTable({"/"}); });
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(model_.data(Top(2), SidebarModel::ExpandRole).toString(), QStringLiteral("false"));
    EXPECT_TRUE(model_.canFetchMore(Top(2)));
}

}  // namespace
}  // namespace lumivex
