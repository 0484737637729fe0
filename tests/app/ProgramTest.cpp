// The program as a process: it starts on the offscreen platform (or a real X display), and a
// SIGTERM or Ctrl+Q takes the road of a close, so the settings are written; a folder on the
// command line is extracted and ends it; what it cannot act on is said with a failing status.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <filesystem>
#include <fstream>
#include <memory>

#include "CameraFiles.h"
#include "ScratchDir.h"
#include "core/PrefFile.h"
#include "core/Settings.h"
#include "core/Version.h"

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
    // Starts the program and waits for its readiness notice (NOTIFY_SOCKET): the window is up.
    void Launch(QProcess& p) {
        const std::string socket = (home_ / "notify").string();
        const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        socket.copy(addr.sun_path, sizeof(addr.sun_path) - 1);
        ::bind(fd, reinterpret_cast<const sockaddr*>(&addr), sizeof(addr));
        env_.insert("NOTIFY_SOCKET", QString::fromStdString(socket));
        p.setProcessEnvironment(env_);
        p.start(LUMIVEX_PLUS_PATH, {});
        pollfd ready{fd, POLLIN, 0};
        char notice[16] = {};
        if (::poll(&ready, 1, 30000) == 1) ::recv(fd, notice, sizeof(notice) - 1, 0);
        ::close(fd);
        ASSERT_STREQ(notice, "READY=1");
    }

    fixtures::ScratchDir scratch_;
    fs::path home_ = scratch_.path();
    QProcessEnvironment env_;
};

TEST_F(ProgramTest, TerminateSavesSettingsAndRemovesTheTemporaryFolder) {
    const fs::path temp = home_ / "com.ZenmoraWorksJP.LumivexPlus";
    fs::create_directories(temp / "inner");
    std::ofstream(temp / "inner" / "placemark.kml") << "x";

    QProcess p;
    ASSERT_NO_FATAL_FAILURE(Launch(p));
    EXPECT_FALSE(fs::exists(Settings()));  // only a close writes it
    p.terminate();
    ASSERT_TRUE(p.waitForFinished(10000));
    EXPECT_EQ(p.exitCode(), 0);

    ASSERT_TRUE(fs::exists(Settings()));
    lumivex::Settings s;  // what goes in is the window's test
    s.InitAll();
    EXPECT_EQ(PrefFile::LoadPref(s, Settings().parent_path()), LoadResult::Loaded);
    EXPECT_FALSE(fs::exists(temp));
}

TEST_F(ProgramTest, AFolderArgumentIsExtractedAndWhatIsNoFolderIsRefused) {
    const fs::path source = fixtures::WriteCameraFolder(home_ / "Card", {"IMG_0001.JPG"});
    const fs::path target = home_ / "Out";
    fs::create_directories(target);
    auto run = [&](const QStringList& args, const QByteArray& input) {
        auto p = std::make_unique<QProcess>();
        p->setProcessEnvironment(env_);
        p->start(LUMIVEX_PLUS_PATH, args);
        p->write(input);  // the answer to the folder question: no screen, so it is asked here
        p->closeWriteChannel();
        EXPECT_TRUE(p->waitForFinished(30000));
        return p;
    };

    auto p = run({QString::fromStdString(source.string())},
                 QByteArray::fromStdString(target.string() + "\n"));
    EXPECT_EQ(p->exitCode(), 0);
    EXPECT_TRUE(fs::exists(target / "IMG_0001.jpg"));  // which files go is BatchRun's
    EXPECT_FALSE(fs::exists(Settings()));              // only a close writes it

    const fs::path file = source / "IMG_0001.JPG";
    p = run({QString::fromStdString(file.string())}, {});
    EXPECT_EQ(p->exitCode(), 2);
    EXPECT_TRUE(QString::fromUtf8(p->readAllStandardError())
                    .contains(QStringLiteral("はフォルダではありません")));

    p = run({QStringLiteral("--version")}, {});
    EXPECT_EQ(p->exitCode(), 0);
    EXPECT_EQ(p->readAllStandardOutput().toStdString(),
              std::string("Lumivex Plus ") + kVersionString + "\n");
}

// Ctrl+Q typed on a real X display (Xvfb, keys through XTEST) ends the program by the
// window's close, which writes the settings. Skipped where Xvfb or xdotool is missing.
TEST_F(ProgramTest, CtrlQOnARealDisplaySavesTheSettings) {
    if (QStandardPaths::findExecutable("Xvfb").isEmpty() ||
        QStandardPaths::findExecutable("xdotool").isEmpty())
        GTEST_SKIP() << "Xvfb or xdotool missing";
    const QString display = QStringLiteral(":%1").arg(300 + ::getpid() % 600);
    QProcess xvfb;
    xvfb.start("Xvfb", {display, "-screen", "0", "1280x800x24", "-nolisten", "tcp"});
    ASSERT_TRUE(xvfb.waitForStarted(10000));
    const fs::path socket = "/tmp/.X11-unix/X" + display.mid(1).toStdString();
    for (int i = 0; i < 300 && !fs::exists(socket); ++i)
        ::usleep(20000);
    ASSERT_TRUE(fs::exists(socket));

    lumivex::Settings s;  // Google Earth off: its search would put a question over the window
    s.InitAll();
    s.gPref[pref::kGoogleEarthAllowed] = 0;
    s.gPref[pref::kFrameWidth] = 0;  // only the close writes a width
    fs::create_directories(Settings().parent_path());
    ASSERT_TRUE(PrefFile::SavePref(s, Settings().parent_path()));
    env_.insert("QT_QPA_PLATFORM", "xcb");
    env_.insert("DISPLAY", display);
    QProcess p;
    ASSERT_NO_FATAL_FAILURE(Launch(p));
    auto xdotool = [&](const QStringList& args) {
        QProcess x;
        x.setProcessEnvironment(env_);
        x.start("xdotool", args);
        x.waitForFinished(10000);
        return QString::fromUtf8(x.readAllStandardOutput()).trimmed();
    };
    const QString win =
        xdotool({"search", "--sync", "--name", "^Lumivex Plus$"}).section('\n', 0, 0);
    ASSERT_FALSE(win.isEmpty());
    xdotool({"mousemove", "--window", win, "400", "300", "click", "1"});  // focus, no WM here
    xdotool({"key", "ctrl+q"});
    const bool ended = p.waitForFinished(15000);
    if (!ended) p.kill();
    xvfb.terminate();
    xvfb.waitForFinished(5000);
    ASSERT_TRUE(ended);
    EXPECT_EQ(p.exitCode(), 0);
    lumivex::Settings saved;
    saved.InitAll();
    ASSERT_EQ(PrefFile::LoadPref(saved, Settings().parent_path()), LoadResult::Loaded);
    EXPECT_GE(saved.gPref[pref::kFrameWidth], 725);  // the close stored the frame
}

}  // namespace
}  // namespace lumivex
