// The mount table (the kernel's line shape, its escapes, the lines it must not trust, the top
// mount of a path), the diff of two tables, and the monitor that keeps the last one. The monitor
// against real mounts is tested with the whole program (tests/app/CardMountTest).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include "ScratchDir.h"
#include "platform/MountChanges.h"
#include "platform/MountMonitor.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

using Strings = std::vector<std::string>;

Strings Points(const std::vector<MountEntry>& entries) {
    Strings points;
    for (const MountEntry& e : entries)
        points.push_back(e.mountPoint);
    return points;
}

const char* const kRoot = "20 1 8:2 / / rw - ext4 /dev/sda2 rw\n";

TEST(MountChangesTest, ReportsEveryMountAndUnmountByTopEntry) {
    const MountTable before =
        MountTable::Parse(std::string(kRoot) +
                          "30 20 8:17 / /media/ann/EOS\\040DIGITAL rw - vfat /dev/sdb1 rw\n"
                          "31 20 8:33 / /media/ann/B rw - vfat /dev/sdc1 rw\n"
                          "32 20 8:49 / /media/ann/Swap rw - vfat /dev/sdd1 rw\n"
                          "33 20 8:65 / /media/ann/Opts rw,nosuid - exfat /dev/sde1 rw\n"
                          "34 20 8:81 / /mnt/over rw - ext4 /dev/sdf1 rw\n");
    const MountTable after = MountTable::Parse(
        std::string(kRoot) +
        "31 20 8:33 / /media/ann/B rw - vfat /dev/sdc1 rw\n"
        "40 20 8:97 / /media/ann/Swap rw - vfat /dev/sdg1 rw\n"          // another card, same path
        "33 20 8:65 / /media/ann/Opts ro,noexec - exfat /dev/sde1 ro\n"  // remounted
        "34 20 8:81 / /mnt/over rw - ext4 /dev/sdf1 rw\n"
        "41 34 0:50 / /mnt/over rw - tmpfs tmpfs rw\n"  // mounted on top
        "42 20 8:113 / /media/ann/Z\\040card rw - vfat /dev/sdh1 rw\n"
        "43 20 8:129 / /media/ann/A rw - vfat /dev/sdi1 rw\n");

    const MountChanges c = MountChanges::Between(before, after);
    ASSERT_EQ(Points(c.unmounted),
              (Strings{"/media/ann/EOS DIGITAL", "/media/ann/Swap", "/mnt/over"}));
    ASSERT_EQ(Points(c.mounted),
              (Strings{"/media/ann/A", "/media/ann/Swap", "/media/ann/Z card", "/mnt/over"}));
    // The entries themselves, not just their paths: old on one side, new on the other.
    EXPECT_EQ(c.unmounted[1].source + c.mounted[1].source, "/dev/sdd1/dev/sdg1");
    // The top mount is the one found.
    EXPECT_EQ(after.Find("/mnt/over")->source + (after.Find("/nothing") ? "?" : ""), "tmpfs");
}

TEST(MountChangesTest, MonitorReportsAChangeOnceAndIgnoresFailedReads) {
    fixtures::ScratchDir dir("lvx-monitor");
    const fs::path file = dir.path() / "mountinfo";
    auto write = [&](const std::string& text) { std::ofstream(file) << text; };
    write(std::string(kRoot) + "30 20 8:17 / /media/ann/A rw - vfat /dev/sdb1 rw\n");

    MountMonitor monitor(file);
    EXPECT_TRUE(monitor.Check().Empty());

    write(std::string(kRoot) + "31 20 8:33 / /media/ann/B rw - vfat /dev/sdc1 rw\n");
    EXPECT_EQ(Points(monitor.Check().mounted), (Strings{"/media/ann/B"}));

    write("");  // a failed read
    EXPECT_TRUE(monitor.Check().Empty());
    // Back with the card gone: compared with the last good table, not with the failed reads.
    write(kRoot);
    EXPECT_EQ(Points(monitor.Check().unmounted), (Strings{"/media/ann/B"}));
}

TEST(MountTableTest, ParsesFieldsAndEscapesAndSkipsMalformedLinesAndReadsTheLiveTable) {
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
    EXPECT_EQ(
        std::tuple(card.mountId, card.major, card.minor, card.fsType, card.source, card.mountPoint),
        std::tuple(98, 8u, 17u, "vfat", "/dev/sdb1", "/media/ann/My Card"));
    EXPECT_EQ(t.Entries()[2].root + t.Entries()[2].mountPoint + t.Entries()[2].source,
              "/sub/run/a\tb\\c\ndtmp fs");
    EXPECT_EQ(t.Entries()[3].source, "u@h:/w x");
    // Only three octal digits make an escape.
    EXPECT_EQ(MountTable::Unescape("a\\04 \\08x\\911\\101\\"), "a\\04 \\08x\\911A\\");

    std::string many;
    for (std::size_t i = 0; i < MountTable::kMaxEntries + 5; ++i)
        many += "1 1 0:1 / /m" + std::to_string(i) + " rw - tmpfs t rw\n";
    EXPECT_EQ(MountTable::Parse(many).Entries().size(), MountTable::kMaxEntries);
    EXPECT_NE(MountTable::Read().Find("/"), nullptr);
}

}  // namespace
}  // namespace lumivex
