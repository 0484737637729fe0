// The mount table: the kernel's line shape, its escapes, and the lines it must not trust.
#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "platform/MountTable.h"

namespace lumivex {
namespace {

TEST(MountTableTest, ParsesFieldsAndEscapesAndSkipsMalformedLines) {
    const MountTable t = MountTable::Parse(
        "22 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
        "\n"
        "garbage\n"
        "98 22 8:17 / /media/ann/My\\040Card rw,nosuid master:4 shared:9 - vfat /dev/sdb1 rw\n"
        "1 2 8:1 / /a rw shared:1 ext4 /dev/sda1 rw\n"  // no separator
        "1 2 81 / /b rw - ext4 /dev/sda1 rw\n"          // no major:minor
        "x 2 8:1 / /c rw - ext4 /dev/sda1 rw\n"         // id not a number
        "99 22 0:52 /sub /run/a\\011b\\134c\\012d rw - tmpfs tmp\\040fs rw\n"
        "1 2 8:1 / relative rw - ext4 /dev/sda1 rw\n"  // mount point not absolute
        "1 2 8:1 / /d rw - ext4\n"                     // too few fields after the separator
        "100 22 0:53 / /mnt/x rw - fuse.sshfs u@h:/w\\040x rw");  // no final line end
    ASSERT_EQ(t.Entries().size(), 4u);
    const MountEntry& card = t.Entries()[1];
    EXPECT_EQ(std::tuple(card.mountId, card.major, card.minor, card.fsType, card.source),
              std::tuple(98, 8u, 17u, "vfat", "/dev/sdb1"));
    EXPECT_EQ(card.mountPoint, "/media/ann/My Card");
    EXPECT_EQ(t.Entries()[2].root + t.Entries()[2].mountPoint + t.Entries()[2].source,
              "/sub/run/a\tb\\c\ndtmp fs");
    EXPECT_EQ(t.Entries()[3].source, "u@h:/w x");
    // Only three octal digits make an escape.
    EXPECT_EQ(MountTable::Unescape("a\\04 \\08x\\101\\"), "a\\04 \\08xA\\");

    std::string many;
    for (std::size_t i = 0; i < MountTable::kMaxEntries + 5; ++i)
        many += "1 1 0:1 / /m" + std::to_string(i) + " rw - tmpfs t rw\n";
    EXPECT_EQ(MountTable::Parse(many).Entries().size(), MountTable::kMaxEntries);
}

TEST(MountTableTest, FindTakesTheTopMountTablesCompareAndTheLiveTableReads) {
    const std::string base = "1 0 8:1 / / rw - ext4 /dev/sda1 rw\n";
    const std::string over = "2 1 0:9 / /m rw - tmpfs a rw\n3 1 0:10 / /m rw - tmpfs b rw\n";
    const MountTable t = MountTable::Parse(base + over);
    ASSERT_NE(t.Find("/m"), nullptr);
    EXPECT_EQ(t.Find("/m")->source, "b");
    EXPECT_EQ(t.Find("/nothing"), nullptr);
    EXPECT_EQ(t.MountPoints(), (std::vector<std::string>{"/", "/m"}));
    EXPECT_EQ(t, MountTable::Parse(base + over));
    EXPECT_NE(t, MountTable::Parse(base));

    EXPECT_NE(MountTable::Read().Find("/"), nullptr);
    EXPECT_TRUE(MountTable::Read("/nonexistent/mountinfo").Entries().empty());
}

}  // namespace
}  // namespace lumivex
