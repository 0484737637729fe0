#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest/QTest>
#include <string>
#include <vector>

#include "browser/GridLayout.h"
#include "browser/ThumbnailCanvas.h"

namespace lumivex {
namespace {

constexpr QRgb kBackground = 0xF0F0F0;
constexpr QRgb kSelection = 0xFF0000;
constexpr QRgb kBlack = 0x000000;
constexpr Color kPictColor{0x20, 0xA0, 0x40};
constexpr QRgb kPict = 0x20A040;
const std::string kLongName = "A_VERY_LONG_FILE_NAME_THAT_CANNOT_FIT.JPG";

ItemRecord Item(const std::string& name, bool withPicture) {
    ItemRecord item;
    item.fname = name;
    item.w = 100;
    item.h = 75;
    if (withPicture) {
        item.pict = Picture::Make(item.w, item.h);
        item.pict.Fill(kPictColor);
    }
    return item;
}

class CanvasTest : public ::testing::Test {
  protected:
    QImage Render(int paneWidth, int paneHeight, int scrollY) {
        layout_.Flow(items_, paneWidth);
        canvas_.resize(paneWidth, paneHeight);
        canvas_.SetItems(&items_, &layout_);
        canvas_.SetColors(static_cast<int>(kBackground), static_cast<int>(kSelection));
        canvas_.SetScrollY(scrollY);
        QImage image(canvas_.size(), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        canvas_.render(&image);
        return image;
    }
    static QRgb At(const QImage& image, int x, int y) { return image.pixel(x, y) & 0xFFFFFF; }
    static bool Inked(const QImage& image, int x, int y) {
        const QColor c = image.pixelColor(x, y);
        return c.red() < 0xA0 && c.green() < 0xA0;  // text is black over a light ground
    }
    // The columns of ink in the band of rows [top, bottom); -1, -1 for none.
    static std::pair<int, int> InkColumns(const QImage& image, int left, int right, int top,
                                          int bottom) {
        std::pair<int, int> ink{-1, -1};
        for (int x = left; x < right; ++x) {
            for (int y = top; y < bottom; ++y) {
                if (!Inked(image, x, y)) continue;
                if (ink.first < 0) ink.first = x;
                ink.second = x;
            }
        }
        return ink;
    }

    std::vector<ItemRecord> items_;
    GridLayout layout_;
    ThumbnailCanvas canvas_;
};

TEST_F(CanvasTest, DrawsPictureFramesAndSelection) {
    items_ = {Item("A.JPG", true), Item("B.JPG", true), Item("C.JPG", false)};
    items_[1].selected = true;
    const QImage image = Render(320, 200, 0);
    // Items at x = 5, 110, 215; y = 5; 100 by 75.
    EXPECT_EQ(At(image, 2, 2), kBackground);
    EXPECT_EQ(At(image, 50, 40), kPict);
    for (const auto& [x, y] :
         std::vector<std::pair<int, int>>{{5, 5}, {104, 5}, {5, 79}, {104, 79}})
        EXPECT_EQ(At(image, x, y), kBlack) << x << "," << y;
    EXPECT_EQ(At(image, 6, 6), kPict);
    EXPECT_EQ(At(image, 105, 40), kBackground);
    // The selection frame: two pixels outside the picture on every side, nothing beyond.
    const std::vector<std::pair<int, int>> frame{{108, 40}, {109, 40}, {210, 40}, {211, 40},
                                                 {120, 3},  {120, 4},  {120, 80}, {120, 81},
                                                 {108, 3},  {211, 81}};
    for (const auto& [x, y] : frame)
        EXPECT_EQ(At(image, x, y), kSelection) << x << "," << y;
    const std::vector<std::pair<int, int>> beyond{{107, 40}, {212, 40}, {120, 2},
                                                  {120, 82}, {107, 2},  {212, 82}};
    for (const auto& [x, y] : beyond)
        EXPECT_EQ(At(image, x, y), kBackground) << x << "," << y;
    EXPECT_EQ(At(image, 110, 5), kBlack);
    EXPECT_EQ(At(image, 3, 3), kBackground);  // item 0 is not selected
    // No picture: the text instead, the frame as usual.
    EXPECT_NE(InkColumns(image, 223, 314, 30, 45).first, -1);
    EXPECT_EQ(At(image, 260, 10), kBackground);
    EXPECT_EQ(At(image, 215, 5), kBlack);
}

TEST_F(CanvasTest, ShortLabelIsCentredAndLongOneCut) {
    items_ = {Item("A.JPG", true), Item(kLongName, true)};
    const QImage image = Render(320, 200, 0);
    EXPECT_FALSE(items_[0].compact);
    EXPECT_TRUE(items_[1].compact);

    // The label band: from the bottom of the picture (y 80) through the row gap.
    const auto [left, right] = InkColumns(image, 5, 105, 82, 100);
    ASSERT_NE(left, -1);
    EXPECT_NEAR((left + right) / 2.0, 5 + 50, 2.0);

    // The cut label: text from x + 4, the last 14 pixels covered but for "..." from w - 12.
    const int x = 110;
    EXPECT_GE(InkColumns(image, x, x + 86, 82, 99).first, x + 3);
    EXPECT_EQ(InkColumns(image, x + 86, x + 88, 82, 99).first, -1);
    EXPECT_NE(InkColumns(image, x + 88, x + 100, 82, 99).first, -1);
}

TEST_F(CanvasTest, PaintsOnlyTheVisibleBand) {
    // One item a row: rows at y = 5, 100, 195, 290, 385, ...
    for (int i = 0; i < 20; ++i)
        items_.push_back(Item(kLongName, true));
    const QImage image = Render(110, 200, 150);
    std::vector<bool> compact;
    for (const ItemRecord& item : items_)
        compact.push_back(item.compact);
    // The band 150..350 holds the lower part of item 1, items 2 and 3.
    std::vector<bool> expected(20, false);
    expected[1] = expected[2] = expected[3] = true;
    EXPECT_EQ(compact, expected);
    EXPECT_EQ(At(image, 15, 10), kPict);  // item 1 at content y 160
    EXPECT_EQ(At(image, 5, 174 - 150), kBlack);
}

TEST_F(CanvasTest, LabelDropsTheExtensionUnlessFullNames) {
    const std::vector<std::tuple<std::string, bool, std::string>> cases{
        {"DSC.0001.JPG", false, "DSC.0001"},
        {"DSC.0001.JPG", true, "DSC.0001.JPG"},
        {"README", false, "README"},
        {"README", true, "README"}};
    for (const auto& [name, full, label] : cases) {
        canvas_.SetFullNames(full);
        EXPECT_EQ(canvas_.LabelOf(Item(name, false)).toStdString(), label) << name;
    }
}

TEST_F(CanvasTest, PointerAndWheelGoOutAsSignals) {
    QSignalSpy pressed(&canvas_, &ThumbnailCanvas::pressed);
    QSignalSpy wheel(&canvas_, &ThumbnailCanvas::wheelLines);
    canvas_.resize(200, 200);
    QTest::mousePress(&canvas_, Qt::LeftButton, Qt::ShiftModifier, QPoint(30, 40));
    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0][0].toInt(), 30);
    EXPECT_EQ(pressed[0][1].toInt(), 40);
    EXPECT_TRUE(pressed[0][3].value<Qt::KeyboardModifiers>().testFlag(Qt::ShiftModifier));

    const auto turn = [this](int delta) {
        QWheelEvent event(QPointF(10, 10), QPointF(10, 10), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas_, &event);
    };
    turn(-120);  // one notch towards the user: one line down
    turn(240);
    turn(-60);  // half a notch is not yet a line
    turn(-60);
    ASSERT_EQ(wheel.count(), 3);
    EXPECT_EQ(wheel[0][0].toInt(), 1);
    EXPECT_EQ(wheel[1][0].toInt(), -2);
    EXPECT_EQ(wheel[2][0].toInt(), 1);
}

}  // namespace
}  // namespace lumivex
