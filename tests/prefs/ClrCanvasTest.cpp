// The colour swatch: its frame, and the picker's answer taken or not.
#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

#include "../app/ScriptedPrompter.h"
#include "prefs/ClrCanvas.h"

namespace lumivex {
namespace {

TEST(ClrCanvasTest, PaintsASwatchInABlackFrame) {
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
}

TEST(ClrCanvasTest, TakesThePickedColourAndKeepsItsOwnOnCancel) {
    ScriptedPrompter prompter;
    ClrCanvas swatch(prompter);
    swatch.resize(40, 20);
    swatch.SetClr(0x112233);
    prompter.colors = {QColor(0xAB, 0xCD, 0xEF)};
    QTest::mouseClick(&swatch, Qt::LeftButton);
    EXPECT_EQ(swatch.Clr(), 0xABCDEF);
    ASSERT_EQ(prompter.colorsOffered.size(), 1);
    EXPECT_EQ(prompter.colorsOffered[0], QColor(0x11, 0x22, 0x33));

    QTest::mouseClick(&swatch, Qt::LeftButton);  // no answer: cancelled
    EXPECT_EQ(swatch.Clr(), 0xABCDEF);
    EXPECT_EQ(prompter.colorsOffered.size(), 2);
    EXPECT_EQ(prompter.colorsOffered[1], QColor(0xAB, 0xCD, 0xEF));
}

}  // namespace
}  // namespace lumivex
