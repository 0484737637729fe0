#include <gtest/gtest.h>

#include <QIcon>
#include <QImage>
#include <QPixmap>

#include "core/AppId.h"

// The window icon is the installed icon, built in under the app id; a name that does not
// match the resource list leaves the window with the platform's blank icon.
TEST(AppIcon, TheBuiltInIconDrawsAtTheDesktopSizes) {
    Q_INIT_RESOURCE(resources);
    const QIcon icon(QString::fromUtf8(lumivex::kAppIconResource));
    for (const int size : {16, 48, 256}) {
        const QImage image = icon.pixmap(size).toImage();
        ASSERT_FALSE(image.isNull()) << size;
        EXPECT_EQ(image.size(), QSize(size, size));
        // The card's body covers the middle of the square.
        EXPECT_GT(qAlpha(image.pixel(size / 2, size / 2)), 200) << size;
    }
}
