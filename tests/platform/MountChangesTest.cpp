// Mount changes: the diff of two tables, and the monitor that keeps the last one. The monitor
// against real mounts is tested with the whole program (tests/app/CardMountTest).
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
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
    const Strings gone = {"/media/ann/EOS DIGITAL", "/media/ann/Swap", "/mnt/over"};
    ASSERT_EQ(Points(c.unmounted), gone);
    ASSERT_EQ(Points(c.mounted),
              (Strings{"/media/ann/A", "/media/ann/Swap", "/media/ann/Z card", "/mnt/over"}));
    // The entries themselves, not just their paths: old on one side, new on the other.
    EXPECT_EQ(c.unmounted[1].source + c.mounted[1].source, "/dev/sdd1/dev/sdg1");

    // The reverse direction: the over-mount going away uncovers the entry below it.
    const MountChanges back = MountChanges::Between(after, before);
    EXPECT_EQ(Points(back.mounted), gone);
    EXPECT_TRUE(MountChanges::Between(after, after).Empty());
}

void Write(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << text;
}

TEST(MountChangesTest, MonitorReportsAChangeOnceAndIgnoresFailedReads) {
    fixtures::ScratchDir dir("lvx-monitor");
    const fs::path file = dir.path() / "mountinfo";
    Write(file, std::string(kRoot) + "30 20 8:17 / /media/ann/A rw - vfat /dev/sdb1 rw\n");

    MountMonitor monitor(file);
    EXPECT_TRUE(monitor.Check().Empty());

    Write(file, std::string(kRoot) + "31 20 8:33 / /media/ann/B rw - vfat /dev/sdc1 rw\n");
    const MountChanges c = monitor.Check();
    EXPECT_EQ(Points(c.unmounted), (Strings{"/media/ann/A"}));
    EXPECT_EQ(Points(c.mounted), (Strings{"/media/ann/B"}));
    EXPECT_TRUE(monitor.Check().Empty());

    Write(file, "");
    EXPECT_TRUE(monitor.Check().Empty());
    fs::remove(file);
    EXPECT_TRUE(monitor.Check().Empty());
    // Back with the card gone: compared with the last good table, not with the failed reads.
    Write(file, kRoot);
    EXPECT_EQ(Points(monitor.Check().unmounted), (Strings{"/media/ann/B"}));
}

}  // namespace
}  // namespace lumivex
