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
    for (const std::int64_t value : {std::int64_t{0x3366CC}, std::int64_t{0xFFFFFF}}) {
        swatch.SetClr(value);
        const QImage shot = swatch.grab().toImage();
        const QColor c(static_cast<QRgb>(value));
        EXPECT_EQ(shot.pixelColor(0, 0), QColor(Qt::black));
        EXPECT_EQ(shot.pixelColor(19, 9), QColor(Qt::black));
        EXPECT_EQ(shot.pixelColor(1, 1).rgb() & 0xFFFFFF, c.rgb() & 0xFFFFFF);
        EXPECT_EQ(shot.pixelColor(18, 8).rgb() & 0xFFFFFF, c.rgb() & 0xFFFFFF);
    }

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
