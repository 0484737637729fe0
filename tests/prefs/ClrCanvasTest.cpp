// The colour swatch: its frame, and the picker's answer taken or not.
#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "../app/ScriptedPrompter.h"
#include "prefs/ClrCanvas.h"

namespace lumivex {
namespace {

TEST(ClrCanvasTest, PaintsASwatchInABlackFrameAndTakesThePickedColour) {
    ScriptedPrompter prompter;
    ClrCanvas swatch(prompter);
    swatch.resize(20, 10);
    swatch.SetClr(0x20FFE0);
    const QImage shot = swatch.grab().toImage();
    EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(shot.pixelColor(19, 9), QColor(Qt::black));
    EXPECT_EQ(shot.pixelColor(1, 1), QColor(0x20, 0xFF, 0xE0));
    EXPECT_EQ(shot.pixelColor(18, 8), QColor(0x20, 0xFF, 0xE0));

    // The picker starts from the swatch's colour; a cancel keeps it.
    swatch.SetClr(0x112233);
    prompter.colors = {QColor(0xAB, 0xCD, 0xEF)};
    QTest::mouseClick(&swatch, Qt::LeftButton);
    EXPECT_EQ(swatch.Clr(), 0xABCDEF);
    QTest::mouseClick(&swatch, Qt::LeftButton);  // no answer: cancelled
    EXPECT_EQ(swatch.Clr(), 0xABCDEF);
    EXPECT_EQ(prompter.colorsOffered,
              (QList<QColor>{QColor(0x11, 0x22, 0x33), QColor(0xAB, 0xCD, 0xEF)}));
}

}  // namespace
}  // namespace lumivex
