// The volume list: which mounts each mode shows, their order, and the names rows show.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/DiskLabels.h"
#include "platform/Volumes.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

const char* const kTable =
    "20 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
    "21 20 0:5 / /proc rw - proc proc rw\n"
    "22 20 0:6 / /sys rw - sysfs sysfs rw\n"
    "23 20 0:7 / /dev rw - devtmpfs udev rw\n"
    "24 20 0:25 / /run rw - tmpfs tmpfs rw\n"
    "25 20 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
    "26 20 7:3 / /snap/core/1 ro - squashfs /dev/loop3 ro\n"
    "27 24 8:17 / /run/media/ann/CANON rw - vfat /dev/sdb1 rw\n"
    "28 24 8:33 / /run/media/bob/OTHER rw - vfat /dev/sdc1 rw\n"
    "29 20 0:40 / /media/share rw - cifs //nas/photos rw\n"
    "30 20 8:49 / /media/ann/My\\040Disk rw - exfat /dev/sdd1 rw\n"
    "31 20 8:65 / /mnt/backup rw - ext4 /dev/sde1 rw\n"
    "32 20 0:41 / /mnt/ram rw - tmpfs tmpfs rw\n"
    "33 20 0:42 / /media rw - tmpfs tmpfs rw\n"
    "34 20 0:43 / /mnt rw - tmpfs tmpfs rw\n"
    "35 20 0:44 / /tmp rw - tmpfs tmpfs rw\n"
    "36 20 8:49 / /media/ann/My\\040Disk rw - exfat /dev/sdd1 rw\n";  // mounted twice

TEST(VolumesTest, ModesChooseTheMountsAUserCallsADisk) {
    const MountTable t = MountTable::Parse(kTable);
    const std::vector<std::string> user = {"/", "/media/ann/My Disk", "/media/share", "/mnt/backup",
                                           "/run/media/ann/CANON"};
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "ann"), user);
    EXPECT_EQ(Volumes::ShownMountPoints(t, 1, "ann"), user);
    const std::vector<std::string> all = Volumes::ShownMountPoints(t, 2, "ann");
    EXPECT_EQ(all, t.MountPoints());
    EXPECT_EQ(all.size(), 16u);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    // Another user's removable media stays hidden; without a user name /run/media is not shown.
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "bob")[4], "/run/media/bob/OTHER");
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "").size(), 4u);
}

TEST(VolumesTest, TheStartUpDiskIsListedEvenWithoutATable) {
    EXPECT_EQ(Volumes::ShownMountPoints(MountTable(), 0, "ann"), std::vector<std::string>{"/"});
    EXPECT_TRUE(Volumes::ShownMountPoints(MountTable(), 2, "ann").empty());
}

TEST(VolumesTest, TheModuleListCountsFromMinusOne) {
    Volumes::gMakeVolumeList(2, MountTable(), "ann");
    EXPECT_EQ(Volumes::gVolumeCount(), -1);
    EXPECT_EQ(Volumes::gGetVolumeInfo(0), "");
    Volumes::gMakeVolumeList(0, MountTable::Parse(kTable), "ann");
    EXPECT_EQ(Volumes::gVolumeCount(), 4);
    EXPECT_EQ(Volumes::gGetVolumeInfo(0), "/");
    EXPECT_EQ(Volumes::gGetVolumeInfo(4), "/run/media/ann/CANON");
    EXPECT_EQ(Volumes::gGetVolumeInfo(5), "");
    EXPECT_EQ(Volumes::GetTimeMachinePath(), "");
}

TEST(VolumesTest, ABackupDestinationGoesLastOrAway) {
    const struct {
        int mode;
        int count;
        const char* last;
    } cases[] = {{0, 3, "/run/media/ann/CANON"}, {1, 4, "/media/share"}, {2, 15, "/media/share"}};
    for (const auto& c : cases) {
        Volumes::gMakeVolumeList(c.mode, MountTable::Parse(kTable), "ann");
        Volumes::SetTimeMachineFlag(c.mode, "/media/share");
        EXPECT_EQ(Volumes::gVolumeCount(), c.count) << c.mode;
        EXPECT_EQ(Volumes::gGetVolumeInfo(Volumes::gVolumeCount()), c.last) << c.mode;
    }
    Volumes::SetTimeMachineFlag(1, "");
    EXPECT_EQ(Volumes::gVolumeCount(), 15);
}

class LabelTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("lumivex-labels-" + std::to_string(::getpid()));
        fs::remove_all(dir_);
        fs::create_directories(dir_ / "by-label");
        fs::create_directories(dir_ / "by-uuid");
        for (const char* dev : {"sda2", "sdb1", "sdc1"})
            std::ofstream(dir_ / dev) << "";
        fs::create_symlink("../sdb1", dir_ / "by-label" / "EOS\\x20DIGITAL");
        fs::create_symlink("../sda2", dir_ / "by-label" / "root\\x2fdisk");
        fs::create_symlink("../sdb1", dir_ / "by-uuid" / "1234-ABCD");
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string Dev(const char* name) const { return (dir_ / name).string(); }
    fs::path dir_;
};

TEST_F(LabelTest, LabelsFollowLinksAndDecodeEscapes) {
    const DiskLabels labels(dir_ / "by-label");
    EXPECT_EQ(labels.LabelOf(Dev("sdb1")), "EOS DIGITAL");
    EXPECT_EQ(labels.LabelOf(Dev("by-uuid/1234-ABCD")), "EOS DIGITAL");
    EXPECT_EQ(labels.LabelOf(Dev("sdc1")), "");
    EXPECT_EQ(labels.LabelOf("tmpfs"), "");
    EXPECT_EQ(DiskLabels::Decode("a\\x20b\\x2"), "a b\\x2");
    EXPECT_EQ(DiskLabels::Decode("\\xzz\\x41"), "\\xzzA");
}

TEST_F(LabelTest, VolumeNamesFallBackToTheLastPartOfThePath) {
    const MountTable t = MountTable::Parse("1 0 8:2 / / rw - ext4 " + Dev("sda2") +
                                           " rw\n"
                                           "2 1 8:17 / /media/ann/CARD rw - vfat " +
                                           Dev("sdb1") +
                                           " rw\n"
                                           "3 1 8:33 / /media/ann/NO\\040NAME rw - vfat " +
                                           Dev("sdc1") + " rw\n");
    const DiskLabels labels(dir_ / "by-label");
    const DiskLabels none(dir_ / "missing");
    const struct {
        const char* mount;
        const DiskLabels& labels;
        const char* name;
    } cases[] = {
        {"/media/ann/CARD", labels, "EOS DIGITAL"},
        {"/media/ann/CARD", none, "CARD"},
        {"/media/ann/NO NAME", labels, "NO NAME"},
        {"/", labels, "root/disk"},
        {"/", none, "/"},
        {"/not/mounted/", labels, "mounted"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Volumes::VolumeName(c.mount, t, c.labels), c.name) << c.mount;
}

}  // namespace
}  // namespace lumivex
