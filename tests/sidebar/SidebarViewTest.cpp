// The sidebar view: 19-pixel rows, selection reported before selectedRow changes, a click
// below the rows deselects, the header row ignores clicks, rows open lazily.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QSignalSpy>
#include <QTest>

#include "SidebarTestSupport.h"
#include "core/Settings.h"
#include "sidebar/FolderTree.h"
#include "sidebar/SidebarDelegate.h"
#include "sidebar/SidebarModel.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

// Puts the user's Desktop in a scratch home for one case.
class SidebarViewTest : public ::testing::Test {
  protected:
    void SetUp() override {
        home_.Dirs({"config", "Desktop/Alpha/One", "Desktop/Alpha/Two", "Desktop/Beta"});
        home_.Picture("Desktop/Beta/IMG_0001.JPG");
        scoped_ = std::make_unique<test::ScopedHome>(home_);
        prefs_.InitAll();
        prefs_.gPref[pref::kFolderNameColor] = 0x00AA33;
    }
    // The display row whose path is `rel` under the Desktop; -1 when it is not shown.
    static int RowOf(const SidebarView& view, const std::string& path) {
        for (int r = 0; r < view.VisibleRowCount(); ++r)
            if (view.PathOfRow(r) == path) return r;
        return -1;
    }
    static QPoint Centre(SidebarView& view, int row) {
        return view.visualRect(view.IndexOfRow(row)).center();
    }

    test::ScratchTree home_;
    Settings prefs_;
    std::unique_ptr<test::ScopedHome> scoped_;
};

TEST_F(SidebarViewTest, RowsAreNineteenPixelsUnderAHeaderWithoutHeaderBar) {
    SidebarView view(prefs_);
    view.resize(240, 400);
    view.show();
    EXPECT_TRUE(view.isHeaderHidden());
    EXPECT_EQ(view.PathOfRow(0), "");
    EXPECT_EQ(view.visualRect(view.IndexOfRow(0)).height(), 19);
    const int alpha = RowOf(view, home_.Str("Desktop/Alpha"));
    const int beta = RowOf(view, home_.Str("Desktop/Beta"));
    ASSERT_GT(alpha, 1);  // after the header and at least "/"
    EXPECT_EQ(beta, alpha + 1);
    EXPECT_EQ(view.visualRect(view.IndexOfRow(alpha)).height(), 19);
    EXPECT_EQ(view.RowOfIndex(view.IndexOfRow(beta)), beta);
    EXPECT_FALSE(view.IndexOfRow(view.VisibleRowCount()).isValid());

    // The name colours: the settings' folder colour for a folder with pictures.
    auto* delegate = qobject_cast<SidebarDelegate*>(view.itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_EQ(delegate->TextColor(view.IndexOfRow(beta)), QColor(0x00, 0xAA, 0x33));
    EXPECT_EQ(delegate->TextColor(view.IndexOfRow(alpha)), QColor(32, 32, 32));
    EXPECT_EQ(delegate->TextColor(view.IndexOfRow(0)), QColor(128, 128, 128));
    view.SetFolderColor(0x123456);
    EXPECT_EQ(delegate->TextColor(view.IndexOfRow(beta)), QColor(0x12, 0x34, 0x56));
}

TEST_F(SidebarViewTest, SelectionIsReportedBeforeSelectedRowChanges) {
    SidebarView view(prefs_);
    view.resize(240, 400);
    view.show();
    std::vector<std::tuple<int, std::string, int>> seen;  // row, path, selectedRow then
    QObject::connect(&view, &SidebarView::selectionDidChange, [&](int row, const QString& path) {
        seen.emplace_back(row, path.toStdString(), view.selectedRow);
    });
    const int alpha = RowOf(view, home_.Str("Desktop/Alpha"));
    const int beta = alpha + 1;
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Centre(view, beta));
    view.SelectRow(alpha);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0], std::make_tuple(beta, home_.Str("Desktop/Beta"), -1));
    EXPECT_EQ(seen[1], std::make_tuple(alpha, home_.Str("Desktop/Alpha"), beta));
    EXPECT_EQ(view.selectedRow, alpha);

    // The header row takes no click; a click below every row ends the selection.
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, Centre(view, 0));
    EXPECT_EQ(seen.size(), 2u);
    const int below = view.visualRect(view.IndexOfRow(view.VisibleRowCount() - 1)).bottom() + 30;
    ASSERT_LT(below, view.viewport()->height());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, below));
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[2], std::make_tuple(-1, std::string(), alpha));
    EXPECT_EQ(view.selectedRow, -1);
    EXPECT_TRUE(view.selectionModel()->selectedRows().isEmpty());
}

TEST_F(SidebarViewTest, OpeningARowLoadsItsChildrenAndRebuildClosesIt) {
    SidebarView view(prefs_);
    view.resize(240, 400);
    view.show();
    const int rows = view.VisibleRowCount();
    const int alpha = RowOf(view, home_.Str("Desktop/Alpha"));
    const QModelIndex index = view.IndexOfRow(alpha);
    EXPECT_EQ(view.model()->rowCount(index), 0);
    view.expand(index);
    EXPECT_EQ(view.model()->rowCount(index), 2);
    EXPECT_EQ(view.VisibleRowCount(), rows + 2);
    EXPECT_EQ(view.PathOfRow(alpha + 2), home_.Str("Desktop/Alpha/Two"));
    EXPECT_EQ(index.data(SidebarModel::ExpandRole).toString(), QStringLiteral("true"));
    view.collapse(index);
    EXPECT_EQ(index.data(SidebarModel::ExpandRole).toString(), QStringLiteral("false"));

    view.expand(index);
    view.SelectRow(alpha + 1);
    view.RemakeTable(true);
    EXPECT_EQ(view.VisibleRowCount(), rows);
    EXPECT_EQ(view.selectedRow, alpha + 1);  // a rebuild leaves the record alone
    EXPECT_FALSE(view.Tree().DataArray()[static_cast<std::size_t>(alpha)]->children);
}

}  // namespace
}  // namespace lumivex
