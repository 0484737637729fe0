// A real camera card, as far as a test can make one: a tmpfs holding DCIM/100TEST, mounted
// under /media/ while the program runs. The sidebar gains the volume, opens it down to the
// numbered folder and shows its thumbnails; pulling the card, also in the middle of a scan,
// empties the grid; the quit ejects it. Needs root, and is skipped without it.
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QTest>
#include <filesystem>

#include "RealisticCamera.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/MainWindow.h"
#include "platform/MountTable.h"
#include "sidebar/SidebarView.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

bool Mounted(const fs::path& point) {
    return MountTable::Read().Find(point.string()) != nullptr;
}

class CardMountTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "mounting needs root";
        fs::create_directories(root_ / "home" / "Desktop");
        ::setenv("HOME", (root_ / "home").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        app_ = std::make_unique<App>(prompter_, root_ / "settings");
        app_->InitApp();
        app_->Prefs().gPref[pref::kEjectAtQuit] = 1;         // eject at quit
        app_->Prefs().gPref[pref::kGoogleEarthAllowed] = 0;  // its search would ask at start
        w_ = app_->MakeWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w_));
    }
    void TearDown() override {
        app_.reset();
        Pull();
    }
    // The card's contents are made on a tmpfs of their own before the card "goes in", so
    // that the mount appears at once with every file on it, as a real card's does.
    bool Insert(int pictures) {
        fixtures::ScratchDir staging("lvx-card");
        if (::mount("lumivex-card", staging.path().c_str(), "tmpfs", 0, "size=256m") != 0)
            return false;
        fs::create_directories(staging.path() / folder_);
        for (int i = 1; i <= pictures; ++i)
            fixtures::WriteRealisticCamera(
                staging.path() / folder_ / ("IMG_" + std::to_string(1000 + i) + ".JPG"), i,
                24 * 1024, fixtures::ByteOrder::Little);
        fs::create_directories(point_);
        const bool ok =
            ::mount(staging.path().c_str(), point_.c_str(), nullptr, MS_BIND, nullptr) == 0;
        ::umount2(staging.path().c_str(), MNT_DETACH);
        return ok;
    }
    // Like a card pulled out: the mount goes even while files on it are open.
    void Pull() {
        if (Mounted(point_)) ::umount2(point_.c_str(), MNT_DETACH);
        std::error_code ec;
        if (!Mounted(point_)) fs::remove(point_, ec);
    }
    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    fs::path point_ = fs::path("/media") / ("LVX CARD " + std::to_string(::getpid()));
    fs::path folder_ = fs::path("DCIM") / "100TEST";
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
    MainWindow* w_ = nullptr;
};

TEST_F(CardMountTest, CardsComeAndGoWhileTheProgramRunsAndTheQuitEjectsTheLast) {
    if (!Insert(3000)) GTEST_SKIP() << "this system does not allow mounts";
    SidebarView* o = w_->Outline();
    // Pulled while its folder is still being read: the scan ends, the grid empties.
    ASSERT_TRUE(QTest::qWaitFor([&] { return w_->ScanRunning() && !w_->Items().empty(); }, 20000));
    Pull();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return o->RowOfPath(point_.string()) < 0 && o->selectedRow == -1 &&
                   !w_->ScanRunning() && w_->Items().empty();
        },
        20000));

    // The last card stays in; the quit ejects it with the script, and says nothing.
    ASSERT_TRUE(Insert(5));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return o->PathOfRow(o->selectedRow) == (point_ / folder_).string() &&
                   !w_->ScanRunning() && w_->Items().size() == 5;
        },
        20000));
    w_->SetEjectScript(LUMIVEX_EJECT_SCRIPT);
    w_->close();
    EXPECT_FALSE(Mounted(point_));
    EXPECT_TRUE(prompter_.asked.isEmpty()) << prompter_.asked.join("; ").toStdString();
}

}  // namespace
}  // namespace lumivex
