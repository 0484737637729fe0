// The program as a process: it starts on the offscreen platform, and a SIGTERM takes the road
// of a close, so the settings are written; a folder on the command line ends it at once.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <filesystem>
#include <fstream>

#include "ScratchDir.h"
#include "core/PrefFile.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

class ProgramTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(home_ / "Desktop");
        env_ = QProcessEnvironment::systemEnvironment();
        env_.insert("HOME", QString::fromStdString(home_.string()));
        env_.insert("XDG_CONFIG_HOME", QString::fromStdString((home_ / ".config").string()));
        env_.insert("QT_QPA_PLATFORM", "offscreen");
        env_.insert("TMPDIR", QString::fromStdString(home_.string()));
    }

    fs::path Settings() const { return home_ / ".config" / "Lumivex初期設定" / "pref"; }

    fixtures::ScratchDir scratch_;
    fs::path home_ = scratch_.path();
    QProcessEnvironment env_;
};

TEST_F(ProgramTest, TerminateSavesSettingsAndRemovesTheTemporaryFolder) {
    const fs::path temp = home_ / "com.ZenmoraWorksJP.LumivexPlus";
    fs::create_directories(temp / "inner");
    std::ofstream(temp / "inner" / "placemark.kml") << "x";

    QProcess p;
    p.setProcessEnvironment(env_);
    p.start(LUMIVEX_PLUS_PATH, {});
    ASSERT_TRUE(p.waitForStarted(10000));
    // The first start creates the settings folder silently; give the window time to come up.
    for (int i = 0; i < 100 && !fs::exists(home_ / ".config" / "Lumivex初期設定"); ++i)
        ::usleep(50'000);
    ::usleep(500'000);
    EXPECT_FALSE(fs::exists(Settings()));  // only a close writes it
    p.terminate();
    ASSERT_TRUE(p.waitForFinished(10000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.exitCode(), 0);

    ASSERT_TRUE(fs::exists(Settings()));
    lumivex::Settings s;
    s.InitAll();
    ASSERT_EQ(PrefFile::LoadPref(s, Settings().parent_path()), LoadResult::Loaded);
    EXPECT_GE(s.gPref[pref::kFrameWidth], 725);  // the window's frame went in
    EXPECT_GE(s.gPref[pref::kFrameHeight], 524);
    EXPECT_GE(s.gPref[pref::kDividerLeft], 100);
    EXPECT_FALSE(fs::exists(temp));
}

TEST_F(ProgramTest, AFolderOnTheCommandLineEndsTheProcessWithoutAWindow) {
    QProcess p;
    p.setProcessEnvironment(env_);
    p.start(LUMIVEX_PLUS_PATH, {QString::fromStdString((home_ / "Desktop").string())});
    ASSERT_TRUE(p.waitForFinished(10000));
    EXPECT_EQ(p.exitCode(), 0);
    EXPECT_FALSE(fs::exists(Settings()));
}

}  // namespace
}  // namespace lumivex
