// The places the sidebar shows: the volume list (which mounts each mode shows, their order,
// the names rows show) and the Desktop folder of the XDG user-dirs file.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "ScratchDir.h"
#include "platform/DiskLabels.h"
#include "platform/Volumes.h"
#include "platform/XdgDirs.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

const char* const kTable =
    "20 1 8:2 / / rw - ext4 /dev/sda2 rw\n"
    "25 20 8:1 / /boot/efi rw - vfat /dev/sda1 rw\n"
    "27 24 8:17 / /run/media/ann/CANON rw - vfat /dev/sdb1 rw\n"
    "28 24 8:33 / /run/media/bob/OTHER rw - vfat /dev/sdc1 rw\n"
    "29 20 0:40 / /media/share rw - cifs //nas/photos rw\n"
    "30 20 8:49 / /media/ann/My\\040Disk rw - exfat /dev/sdd1 rw\n"
    "31 20 8:65 / /mnt/backup rw - ext4 /dev/sde1 rw\n"
    "32 20 0:41 / /mnt/ram rw - tmpfs tmpfs rw\n"
    "33 20 0:42 / /media rw - tmpfs tmpfs rw\n"
    "36 20 8:49 / /media/ann/My\\040Disk rw - exfat /dev/sdd1 rw\n";  // mounted twice

TEST(VolumesTest, ModesChooseTheMountsAUserCallsADisk) {
    const MountTable t = MountTable::Parse(kTable);
    const std::vector<std::string> user = {"/", "/media/ann/My Disk", "/media/share", "/mnt/backup",
                                           "/run/media/ann/CANON"};
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "ann"), user);
    EXPECT_EQ(Volumes::ShownMountPoints(t, 1, "ann"), user);
    EXPECT_EQ(Volumes::ShownMountPoints(t, 2, "ann").size(), 9u);
    // Another user's removable media stays hidden; without a user name /run/media is not shown.
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "bob")[4], "/run/media/bob/OTHER");
    EXPECT_EQ(Volumes::ShownMountPoints(t, 0, "").size(), 4u);
    // The start-up disk is listed even without a table.
    EXPECT_EQ(Volumes::ShownMountPoints(MountTable(), 0, "ann"), std::vector<std::string>{"/"});
}

TEST(VolumesTest, LabelsFollowLinksAndNamesFallBackToTheLastPartOfThePath) {
    fixtures::ScratchDir scratch("lvx-labels");
    const fs::path& dir = scratch.path();
    auto dev = [&](const char* name) { return (dir / name).string(); };
    fs::create_directories(dir / "by-label");
    for (const char* d : {"sda2", "sdb1", "sdc1"})
        std::ofstream(dir / d) << "";
    fs::create_symlink("../sdb1", dir / "by-label" / "EOS\\x20DIGITAL");
    fs::create_symlink("../sda2", dir / "by-label" / "root\\x2fdisk");
    const DiskLabels labels(dir / "by-label"), none(dir / "missing");
    EXPECT_EQ(DiskLabels::Decode("\\xzz\\x41\\x2"), "\\xzzA\\x2");  // only whole escapes

    const MountTable t = MountTable::Parse(
        "1 0 8:2 / / rw - ext4 " + dev("sda2") + " rw\n2 1 8:17 / /media/ann/CARD rw - vfat " +
        dev("sdb1") + " rw\n3 1 8:33 / /media/ann/NO\\040NAME rw - vfat " + dev("sdc1") + " rw\n");
    const struct {
        const char* mount;
        const DiskLabels& labels;
        const char* name;
    } cases[] = {
        // clang-format off
        {"/media/ann/CARD", labels, "EOS DIGITAL"}, {"/media/ann/CARD", none, "CARD"},
        {"/media/ann/NO NAME", labels, "NO NAME"}, {"/", labels, "root/disk"}, {"/", none, "/"},
        {"/not/mounted/", labels, "mounted"},
        // clang-format on
    };
    for (const auto& c : cases)
        EXPECT_EQ(Volumes::VolumeName(c.mount, t, c.labels), c.name) << c.mount;
}

TEST(XdgDirsTest, ParsesTheDesktopLine) {
    const std::pair<const char*, std::optional<fs::path>> cases[] = {
        // clang-format off
        {"# comment\n  XDG_DESKTOP_DIR=\"$HOME/デスクトップ\"  \r\n", fs::path("/home/ann/デスクトップ")},
        {"XDG_DESKTOP_DIR=\"/data/desk/\"", fs::path("/data/desk")},
        {"XDG_DESKTOP_DIR=\"$HOME/My \\\"Desk\\\"\"", fs::path("/home/ann/My \"Desk\"")},
        {"XDG_DESKTOP_DIR=\"$HOME/\"", fs::path()}, {"XDG_DESKTOP_DIR=\"$HOME\"", fs::path()},  // off
        {"XDG_DESKTOP_DIR=\"relative/Desk\"", std::nullopt},
        {"XDG_DESKTOP_DIR=$HOME/Desktop", std::nullopt},  // not quoted
        {"XDG_DESKTOP_DIRX=\"$HOME/x\"", std::nullopt},
        // clang-format on
    };
    for (const auto& [text, dir] : cases)
        EXPECT_EQ(XdgDirs::ParseUserDir(text, "XDG_DESKTOP_DIR", "/home/ann"), dir) << text;
}

TEST(XdgDirsTest, DesktopDirUsesTheFileThenTheDefaultAndOnlyWhatExists) {
    fixtures::ScratchDir scratch("lvx-xdg");
    const fs::path& dir = scratch.path();
    const std::string home = ::getenv("HOME") ? ::getenv("HOME") : "";
    ::setenv("HOME", dir.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", dir.c_str(), 1);
    auto userDirs = [&](const char* text) { std::ofstream(dir / "user-dirs.dirs") << text; };

    fs::create_directory(dir / "Desktop");
    userDirs("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // named but missing: no default
    fs::create_directory(dir / "Schreibtisch");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir / "Schreibtisch");
    userDirs("XDG_DESKTOP_DIR=\"$HOME/\"\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), fs::path());  // switched off
    userDirs("XDG_DESKTOP_DIR=broken\n");
    EXPECT_EQ(XdgDirs::DesktopDir(), dir / "Desktop");
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(XdgDirs::ConfigHome(), dir / ".config");
    ::setenv("HOME", home.c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
}

}  // namespace
}  // namespace lumivex
