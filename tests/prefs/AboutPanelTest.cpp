// The about panel: its icon, and its closing by a click anywhere.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QTimer>

#include "prefs/AboutPanel.h"

namespace lumivex {
namespace {

TEST(AboutPanelTest, ShowsTheIconAndAClickAnywhereClosesIt) {
    AboutPanel panel;
    EXPECT_FALSE(panel.findChild<QLabel*>("ImageWell1")->pixmap().isNull());
    // A point on no label: the panel itself must take the click.
    QTimer::singleShot(0, &panel, [&] { QTest::mouseClick(&panel, Qt::LeftButton, {}, {5, 5}); });
    QTimer::singleShot(2000, &panel, [&] { panel.done(-1); });  // the click went nowhere
    EXPECT_EQ(panel.exec(), QDialog::Accepted);
}

}  // namespace
}  // namespace lumivex
