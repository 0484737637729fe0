#include <gtest/gtest.h>

#include <QPropertyAnimation>
#include <QScreen>
#include <QSignalSpy>
#include <QSplitter>
#include <QWidget>
#include <vector>

#include "browser/WindowFrame.h"

namespace lumivex {
namespace {

class WindowFrameTest : public ::testing::Test {
  protected:
    WindowFrameTest() : split(&window), canvas(&split), frame(window, split, canvas, 15) {
        split.addWidget(new QWidget);
        split.addWidget(&canvas);
        window.resize(800, 600);
        window.show();
    }
    void Finish(QPropertyAnimation* anime) {
        ASSERT_NE(anime, nullptr);
        QSignalSpy finished(anime, &QAbstractAnimation::finished);
        ASSERT_TRUE(finished.wait(5000));
    }

    QWidget window;
    QSplitter split;
    QWidget canvas;
    WindowFrame frame;
};

TEST_F(WindowFrameTest, ResetWinGeoGoesBackToTheCornerKeepingTheSize) {
    const QRect usable = window.screen()->availableGeometry();
    window.move(usable.topLeft() + QPoint(300, 150));
    Finish(frame.ResetWinGeo());
    EXPECT_EQ(window.frameGeometry().topLeft(), usable.topLeft() + QPoint(10, 5));
    EXPECT_EQ(window.size(), QSize(800, 600));
    // The resize of the preferences keeps the top edge.
    Finish(WindowFrame::DoAnime(window, 900, 500));
    EXPECT_EQ(window.geometry(), QRect(frame.DefaultGeometry().topLeft(), QSize(900, 500)));
}

TEST_F(WindowFrameTest, MinimisingMarksTheMenuAndRestoringUnmarks) {
    std::vector<bool> marks;
    frame.SetMinimizeMark([&marks](bool minimised) { marks.push_back(minimised); });
    window.showMinimized();
    frame.Event_WindowStateChange();
    window.showNormal();
    frame.Event_WindowStateChange();
    frame.Event_WindowStateChange();  // no change: no second mark
    window.showMaximized();
    frame.Event_WindowStateChange();
    EXPECT_FALSE(frame.ResetWinGeoAllowed());  // Alt is the menu rules' test
    window.showNormal();
    EXPECT_TRUE(frame.ResetWinGeoAllowed());
    EXPECT_EQ(marks, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace lumivex
