#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <QWheelEvent>
#include <string>
#include <vector>

#include "browser/ThumbnailCanvas.h"
#include "model/GridLayout.h"

namespace lumivex {
namespace {

constexpr QRgb kGround = 0xF0F0F0;
constexpr QRgb kSelection = 0xFF0000;
constexpr QRgb kPict = 0x20A040;
const std::string kLongName = "A_VERY_LONG_FILE_NAME_THAT_CANNOT_FIT.JPG";
using Points = std::vector<std::pair<int, int>>;

ItemRecord Item(const std::string& name, bool withPicture = true) {
    ItemRecord item;
    item.fname = name;
    item.w = 100;
    item.h = 75;
    Picture pict = Picture::Make(100, 75);
    pict.Fill(Color{0x20, 0xA0, 0x40});
    if (withPicture) item.thumb = StoredThumbnail::FromPixels(pict);
    return item;
}

class CanvasTest : public ::testing::Test {
  protected:
    void Render(int paneWidth, int paneHeight, int scrollY) {
        layout_.Flow(items_, paneWidth);
        for (ItemRecord& item : items_)
            item.labelWidth = canvas_.TextWidth(item.Label(false));
        canvas_.resize(paneWidth, paneHeight);
        canvas_.SetItems(&items_, &layout_, &pictures_);
        canvas_.SetColors(static_cast<int>(kGround), static_cast<int>(kSelection));
        canvas_.SetScrollY(scrollY);
        image_ = QImage(canvas_.size(), QImage::Format_RGB32);
        canvas_.render(&image_);
    }
    void ExpectColor(const Points& points, QRgb color) const {
        for (const auto& [x, y] : points)
            EXPECT_EQ(image_.pixel(x, y) & 0xFFFFFF, color) << x << "," << y;
    }
    // The first and last column holding dark (text) pixels in the given box; -1 for none.
    std::pair<int, int> Ink(int left, int right, int top, int bottom) const {
        std::pair<int, int> ink{-1, -1};
        for (int x = left; x < right; ++x)
            for (int y = top; y < bottom; ++y)
                if (qGreen(image_.pixel(x, y)) < 0xA0) ink = {ink.first < 0 ? x : ink.first, x};
        return ink;
    }

    std::vector<ItemRecord> items_;
    GridLayout layout_;
    ThumbnailCache pictures_;
    ThumbnailCanvas canvas_;
    QImage image_;
};

// Three items, the second selected, as painted and as assistive technology sees them.
TEST_F(CanvasTest, PicturesFramesLabelsSelectionAndTheirAccessibleList) {
    items_ = {Item("A.JPG"), Item(kLongName), Item("C.JPG", false)};
    items_[1].selected = true;
    items_[1].compact = true;  // the layout found the label too wide
    canvas_.move(30, 40);      // item rectangles are on the screen, not in the pane
    Render(320, 200, 0);       // items at x = 5, 110, 215; y = 5
    ExpectColor({{2, 2}, {105, 40}, {3, 3}, {260, 10}}, kGround);
    ExpectColor({{50, 40}, {6, 6}}, kPict);
    ExpectColor({{5, 5}, {104, 5}, {5, 79}, {104, 79}, {110, 5}, {215, 5}}, 0);
    // The selection: two pixels round the picture, nothing beyond.
    ExpectColor({{108, 3}, {109, 4}, {108, 40}, {211, 40}, {120, 3}, {120, 81}, {211, 81}},
                kSelection);
    ExpectColor({{107, 40}, {212, 40}, {120, 2}, {120, 82}, {107, 2}, {212, 82}}, kGround);
    EXPECT_NE(Ink(223, 314, 30, 45).first, -1);  // "No Thumbnail"

    // A short label centred under its picture; a long one cut, its end covered but "...".
    const auto [left, right] = Ink(5, 105, 82, 100);
    EXPECT_NEAR((left + right) / 2.0, 55, 2.0);
    EXPECT_GE(Ink(110, 196, 82, 99).first, 113);
    EXPECT_EQ(Ink(196, 198, 82, 99).first, -1);
    EXPECT_NE(Ink(198, 210, 82, 99).first, -1);

    items_[1].compact = false;  // only the selection marks the second item now
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&canvas_);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 3);
    for (int i = 0; i < 3; ++i) {
        const ItemRecord& item = items_[static_cast<std::size_t>(i)];
        QAccessibleInterface* child = list->child(i);
        ASSERT_NE(child, nullptr);
        EXPECT_EQ(child->text(QAccessible::Name).toStdString(), item.fname);
        EXPECT_EQ(list->indexOfChild(child), i);
        EXPECT_EQ(child->state().selected, i == 1) << i;
        EXPECT_EQ(child->rect(),
                  QRect(canvas_.mapToGlobal(QPoint(item.x, item.y)), QSize(100, 75)));
        EXPECT_EQ(list->childAt(child->rect().center().x(), child->rect().center().y()), child);
    }
    QAccessibleInterface* last = list->child(2);
    items_.pop_back();  // a shorter list: the item that went is no longer valid
    EXPECT_FALSE(last->isValid());
}

// Only the visible band is painted. Once painted, the pane decodes the screen above and the one
// below while it idles, and no further.
TEST_F(CanvasTest, PaintsTheVisibleBandAndDecodesTheNeighbouringScreensWhenIdle) {
    items_.assign(20, Item(kLongName));  // one a row, at y = 5, 100, 195, 290, 385, ...
    Render(110, 200, 150);
    ExpectColor({{15, 10}}, kPict);  // item 1 at content y 160
    ExpectColor({{5, 24}}, 0);       // its bottom frame at content y 174
    pictures_.Clear();
    Render(110, 200, 400);  // items 4 to 6 shown
    EXPECT_FALSE(pictures_.Holds(2, 0));
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
    for (std::size_t i = 0; i < items_.size(); ++i)
        EXPECT_EQ(pictures_.Holds(i, 0), i >= 2 && i <= 8) << i;
}

TEST_F(CanvasTest, WheelNotchesBecomeLines) {
    QSignalSpy lines(&canvas_, &ThumbnailCanvas::wheelLines);
    for (int delta : {-120, 240, -60, -60}) {
        QWheelEvent event(QPointF(10, 10), QPointF(10, 10), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas_, &event);
    }
    ASSERT_EQ(lines.count(), 3);  // two half notches make one line
    EXPECT_EQ(lines[0][0].toInt() * 100 + lines[1][0].toInt() * 10 + lines[2][0].toInt(),
              100 - 20 + 1);
}

}  // namespace
}  // namespace lumivex
