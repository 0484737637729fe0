// Row pictures: which icon a row gets, that the program's own drawings are linked in, and
// that an alias wears its badge and that pictures are not made anew at each paint.
#include <gtest/gtest.h>

#include <QImage>

#include "sidebar/SidebarIcons.h"

namespace lumivex {
namespace {

using Kind = SidebarIcons::Kind;

// "/" is the internal drive even when listed as a folder.
TEST(SidebarIconsTest, KindFollowsPathThenVofoAndFallbacksAreBuiltInAndAnAliasIsBadged) {
    EXPECT_EQ(SidebarIcons::KindOf("volume", "/"), Kind::InternalDrive);
    EXPECT_EQ(SidebarIcons::KindOf("folder", "/"), Kind::InternalDrive);
    EXPECT_EQ(SidebarIcons::KindOf("volume", "/media/a"), Kind::ExternalDrive);
    EXPECT_EQ(SidebarIcons::KindOf("folder", "/home/a"), Kind::Folder);
    for (Kind kind : {Kind::InternalDrive, Kind::ExternalDrive, Kind::Folder}) {
        const QImage plain = SidebarIcons::RowPixmap(kind, false, 16, 1.0).toImage();
        const QImage badged = SidebarIcons::RowPixmap(kind, true, 16, 1.0).toImage();
        ASSERT_FALSE(plain.isNull());
        EXPECT_EQ(badged.size(), plain.size());
        EXPECT_NE(badged, plain);
        // Painted again, a row reuses its picture: new ones would pile up in Qt's cache.
        EXPECT_EQ(SidebarIcons::RowPixmap(kind, true, 16, 1.0).cacheKey(),
                  SidebarIcons::RowPixmap(kind, true, 16, 1.0).cacheKey());
    }
}

}  // namespace
}  // namespace lumivex
