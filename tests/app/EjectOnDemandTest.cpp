// Ejecting a volume from its row's contextual menu: only removable volumes offer it, the
// script runs with the mount path while the window goes on, the row stays until the unmount is
// seen, and a failure or a missing script is said through the prompter.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QMenu>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/App.h"
#include "browser/MainWindow.h"
#include "sidebar/SidebarView.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

class EjectOnDemandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(root_ / "home" / "Desktop" / "Photos");
        ::setenv("HOME", (root_ / "home").c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", (root_ / "home" / ".config").c_str(), 1);
        app_ = std::make_unique<App>(prompter_, root_ / "settings");
        app_->InitApp();
        app_->Prefs().gPref[pref::kGoogleEarthAllowed] = 0;  // its search would ask at start
        w_ = app_->MakeWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w_));
        o_ = w_->Outline();
        // A card the sidebar is told of; nothing needs to be mounted there for the menu.
        o_->getPost(SidebarView::VolumeEvent::Mount, card_);
    }
    void TearDown() override { app_.reset(); }
    QMenu* MenuOf(const std::string& path) {
        const int row = o_->RowOfPath(path);
        EXPECT_GT(row, 0) << path;
        return o_->RowMenu(o_->IndexOfRow(row), o_);
    }

    fixtures::ScratchDir scratch_;
    fs::path root_ = scratch_.path();
    std::string card_ = "/media/LVX EJECT " + std::to_string(::getpid());
    ScriptedPrompter prompter_;
    std::unique_ptr<App> app_;
    MainWindow* w_ = nullptr;
    SidebarView* o_ = nullptr;
};

TEST_F(EjectOnDemandTest, TheScriptRunsBesideTheWindowAndItsFailureIsSaid) {
    // The start-up disk has no menu (which volumes do is the menu model's own test).
    EXPECT_EQ(std::unique_ptr<QMenu>(MenuOf("/")), nullptr);
    // A stand-in eject script: waits for `go`, then logs its argument and fails with 3.
    const fs::path go = root_ / "go", log = root_ / "eject.log";
    std::ofstream(root_ / "eject.sh")
        << "while [ ! -e '" << go.string() << "' ]; do sleep 0.02; done\necho \"$1\" >> '"
        << log.string() << "'\nexit 3\n";
    w_->SetEjectScript(root_ / "eject.sh");
    std::unique_ptr<QMenu> menu(MenuOf(card_));
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 1);
    EXPECT_EQ(menu->actions()[0]->text(), QStringLiteral("取り出す"));
    menu->actions()[0]->trigger();
    // The script waits; the window's events go on meanwhile.
    int beats = 0;
    QTimer heartbeat;
    QObject::connect(&heartbeat, &QTimer::timeout, [&] { ++beats; });
    heartbeat.start(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return beats >= 20; }, 10000));
    EXPECT_FALSE(fs::exists(log));
    std::ofstream(go) << "";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !prompter_.asked.isEmpty(); }, 10000));
    EXPECT_EQ(prompter_.asked, QStringList({"error code: 3"}));
    std::string arg;
    std::getline(std::ifstream(log), arg);
    EXPECT_EQ(arg, card_);
    // The row waits for the unmount, which the watcher still reports.
    EXPECT_GT(o_->RowOfPath(card_), 0);
    EXPECT_TRUE(w_->Watcher()->Observing());

    w_->SetEjectScript(root_ / "missing.sh");
    menu.reset(MenuOf(card_));
    menu->actions()[0]->trigger();
    EXPECT_EQ(prompter_.asked.back(), "file not found.");
}

}  // namespace
}  // namespace lumivex
