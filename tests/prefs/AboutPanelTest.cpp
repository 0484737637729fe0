// The about panel: its texts, its icon and its closing by a click.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <QTimer>

#include "prefs/AboutPanel.h"

namespace lumivex {
namespace {

TEST(AboutPanelTest, ShowsNameVersionCreditsAndIcon) {
    AboutPanel panel;
    const std::pair<const char*, QString> labels[] = {
        {"StaticText1", QStringLiteral("Lumivex Plus")},
        {"Label1", QStringLiteral("Universal Application")},
        {"StaticText3", QStringLiteral("Ver. 4.3a1")},
    };
    for (const auto& [name, text] : labels) {
        auto* label = panel.findChild<QLabel*>(QLatin1String(name));
        ASSERT_NE(label, nullptr) << name;
        EXPECT_EQ(label->text(), text) << name;
    }
    EXPECT_FALSE(panel.findChild<QLabel*>("Label1")->isEnabled());
    // Four paragraphs, an empty line between each two.
    const QStringList paragraphs =
        panel.findChild<QLabel*>("StaticText2")->text().split(QStringLiteral("\n\n"));
    EXPECT_EQ(paragraphs.size(), 4);
    for (const QString& p : paragraphs)
        EXPECT_FALSE(p.trimmed().isEmpty());
    EXPECT_FALSE(panel.findChild<QLabel*>("ImageWell1")->pixmap().isNull());
    EXPECT_EQ(panel.size(), QSize(420, 260));
}

TEST(AboutPanelTest, AClickAnywhereClosesIt) {
    for (const QPoint at : {QPoint(5, 5), QPoint(200, 110), QPoint(300, 200)}) {
        AboutPanel panel;
        QTimer::singleShot(0, &panel, [&] { QTest::mouseClick(&panel, Qt::LeftButton, {}, at); });
        QTimer::singleShot(2000, &panel, [&] { panel.done(-1); });  // the click went nowhere
        EXPECT_EQ(panel.exec(), QDialog::Accepted) << at.x() << "," << at.y();
    }
}

}  // namespace
}  // namespace lumivex
