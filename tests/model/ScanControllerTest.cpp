// The scan's steps without a window: which selections start a scan, which empty the grid and
// wait, what becomes of items that arrive, and where labels are cut.
#include <gtest/gtest.h>

#include "ScratchDir.h"
#include "model/ScanController.h"

namespace lumivex {
namespace {

using Step = ScanController::RowStep;

std::vector<ScanItem> Batch(std::vector<std::string> names) {
    std::vector<ScanItem> batch(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        batch[i].fname = names[i];
        batch[i].w = 100;
        batch[i].h = 75;
    }
    return batch;
}

class ScanControllerTest : public ::testing::Test {
  protected:
    fixtures::ScratchDir dir_;
    std::string folder_ = dir_.path().string();
    ScanController scan_;
};

TEST_F(ScanControllerTest, ItemsOfAnAbandonedScanNeverAppear) {
    ASSERT_TRUE(scan_.Begin(folder_, 320, false));
    EXPECT_TRUE(scan_.Take(Batch({"A.JPG", "B.JPG"}), 100));
    EXPECT_TRUE(scan_.Clear(true));  // the grid emptied while the worker runs: stop it
    EXPECT_TRUE(scan_.Items().empty());
    EXPECT_FALSE(scan_.Take(Batch({"C.JPG", "D.JPG"}), 1000));  // still on its way
    EXPECT_TRUE(scan_.Items().empty());

    // The next scan's items are shown again; an idle grid has nothing to stop.
    ASSERT_TRUE(scan_.Begin(folder_, 320, false));
    EXPECT_FALSE(scan_.Take(Batch({"E.JPG"}), 5));  // below the visible band
    EXPECT_EQ(scan_.Items().size(), 1u);
    EXPECT_FALSE(scan_.Clear(false));
}

TEST_F(ScanControllerTest, ACardFolderWinsOverARunningScanAndOtherSelectionsWait) {
    EXPECT_FALSE(scan_.Begin("", 320, false));
    EXPECT_FALSE(scan_.Begin(folder_ + "/gone", 320, false));
    EXPECT_FALSE(scan_.Settle(320));                               // no folder scan has run yet
    EXPECT_EQ(scan_.Choose(1, "/card", true, true), Step::Start);  // nor is one running
    ASSERT_TRUE(scan_.Begin(folder_, 320, false));
    EXPECT_FALSE(scan_.Begin(folder_, 320, true));  // one job at a time

    const struct {
        int row;
        const char* path;
        bool running, autoSelecting;
        Step step;
        bool pending;
    } steps[] = {
        {3, "/a", true, false, Step::Start, false},   // refused by Begin
        {4, "/card", true, true, Step::Clear, true},  // the card's folder waits
        {5, "/b", true, false, Step::Clear, true},    // while giving way, the newest waits
        {-1, "", true, false, Step::Clear, false},    // the selection ended: nothing waits
        {6, "/c", false, true, Step::Start, false},   // idle
        {7, "/card", true, true, Step::Clear, true},
    };
    for (const auto& s : steps) {
        EXPECT_EQ(scan_.Choose(s.row, s.path, s.running, s.autoSelecting), s.step) << s.row;
        EXPECT_EQ(scan_.Pending(), s.pending) << s.row;
    }
    EXPECT_EQ(scan_.TakePending(), "/card");
    EXPECT_EQ(scan_.TakePending(), "");
}

TEST_F(ScanControllerTest, ItemsArePlacedAndCutLabelsMarkedBeforeAnyPaint) {
    // Ten pixels a character: 92 pixels between the insets of a 100-pixel cell.
    scan_.SetLabels([](const std::string& s) { return 10 * static_cast<int>(s.size()); }, false);
    ASSERT_TRUE(scan_.Begin(folder_, 320, false));
    scan_.Take(Batch({"ABCDEFGHI.JPG", "ABCDEFGHIJ.JPG", "A.JPG"}), 0);
    const auto& items = scan_.Items();
    EXPECT_EQ(items[0].compact, false);
    EXPECT_EQ(items[1].compact, true);
    EXPECT_EQ(items[2].x, 215);

    // A resize during the scan waits for its end, then applies.
    EXPECT_FALSE(scan_.Reflow(319, true));
    EXPECT_EQ(items[2].x, 215);
    EXPECT_TRUE(scan_.Settle(319));
    EXPECT_EQ(std::make_pair(items[2].x, items[2].y), std::make_pair(5, 100));
    EXPECT_TRUE(scan_.Reflow(320, false));
    EXPECT_EQ(items[2].y, 5);

    scan_.SetLabels([](const std::string& s) { return 10 * static_cast<int>(s.size()); }, true);
    EXPECT_EQ(items[0].compact, true);  // "ABCDEFGHI.JPG" is 130 pixels
    EXPECT_EQ(items[2].compact, false);
}

TEST_F(ScanControllerTest, AnExportHoldsTheListAndItsEndIsNoScansEnd) {
    ASSERT_TRUE(scan_.Begin(folder_, 320, false));
    scan_.Take(Batch({"A.JPG", "B.JPG", "C.JPG"}), 0);
    // A turn while the scan runs waits for the scan's end, even at an unchanged width.
    std::swap(scan_.Items()[0].w, scan_.Items()[0].h);
    EXPECT_FALSE(scan_.Reflow(320, true));
    const int before = scan_.Items()[1].x;
    ASSERT_TRUE(scan_.Settle(320));
    EXPECT_EQ(scan_.Items()[1].x, before - 25);

    EXPECT_FALSE(scan_.BeginExport(true));  // the worker is busy
    ASSERT_TRUE(scan_.BeginExport(false));
    EXPECT_FALSE(scan_.BeginExport(false));  // one export at a time
    EXPECT_FALSE(scan_.Begin(folder_, 320, false));
    const struct {
        int row;
        const char* path;
        bool autoSelecting;
        bool pending;
    } steps[] = {
        {3, "/a", false, false},   // dropped
        {-1, "", false, false},    // the grid stays for the export
        {4, "/card", true, true},  // the card's folder waits for the end
        {5, "/b", false, true},    // and keeps waiting
    };
    for (const auto& s : steps) {
        EXPECT_EQ(scan_.Choose(s.row, s.path, true, s.autoSelecting), Step::Keep) << s.row;
        EXPECT_EQ(scan_.Pending(), s.pending) << s.row;
    }
    EXPECT_EQ(scan_.Items().size(), 3u);
    EXPECT_TRUE(scan_.Reflow(200, true));  // a turn during the export flows at once
    EXPECT_FALSE(scan_.Settle(200));       // the export's end is not a scan's
    std::string next;
    EXPECT_EQ(scan_.EndExport(next), Step::Start);
    EXPECT_EQ(next, "/card");

    // A pulled card ends the selection during the next export: the grid empties after it.
    ASSERT_TRUE(scan_.BeginExport(false));
    EXPECT_EQ(scan_.Choose(-1, "", true, false), Step::Keep);
    EXPECT_EQ(scan_.EndExport(next), Step::Clear);
    ASSERT_TRUE(scan_.BeginExport(false));
    EXPECT_EQ(scan_.EndExport(next), Step::Keep);
    EXPECT_EQ(scan_.Choose(6, "/c", false, false), Step::Start);
    EXPECT_TRUE(scan_.Begin(folder_, 320, false));
}

// The picture cache is keyed by place in the list, so a new folder's first item is never drawn
// with the old one's picture.
TEST_F(ScanControllerTest, ANewScanForgetsThePicturesOfTheLastList) {
    for (std::uint8_t tint : {10, 20}) {
        ASSERT_TRUE(scan_.Begin(folder_, 320, false));
        const Picture shown(1, 1, {tint, tint, tint});
        std::vector<ScanItem> batch = Batch({"A.JPG"});
        batch[0].thumb = StoredThumbnail::FromPixels(shown);
        scan_.Take(std::move(batch), 0);
        EXPECT_EQ(scan_.Pictures().Get(0, scan_.Items()[0]), shown) << int{tint};
    }
}

}  // namespace
}  // namespace lumivex
