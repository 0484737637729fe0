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

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "core/PrefFile.h"
#include "core/Settings.h"
#include "core/Version.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

// The receiving end of the program's readiness notice (NOTIFY_SOCKET, "READY=1").
class ReadySocket {
  public:
    explicit ReadySocket(const fs::path& path) : path_(path.string()) {
        fd_ = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_un addr{};
        addr.sun_family = AF_UNIX;
        path_.copy(addr.sun_path, sizeof(addr.sun_path) - 1);
        ::bind(fd_, reinterpret_cast<const sockaddr*>(&addr), sizeof(addr));
    }
    ~ReadySocket() { ::close(fd_); }
    const std::string& path() const { return path_; }
    // The notice's text, or "" when none came within the time.
    std::string Wait(int timeoutMs) const {
        pollfd p{fd_, POLLIN, 0};
        if (::poll(&p, 1, timeoutMs) != 1) return {};
        char buf[64] = {};
        const auto n = ::recv(fd_, buf, sizeof(buf) - 1, 0);
        return n > 0 ? std::string(buf, static_cast<std::size_t>(n)) : std::string();
    }

  private:
    std::string path_;
    int fd_ = -1;
};

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

    ReadySocket ready(home_ / "notify");
    env_.insert("NOTIFY_SOCKET", QString::fromStdString(ready.path()));
    QProcess p;
    p.setProcessEnvironment(env_);
    p.start(LUMIVEX_PLUS_PATH, {});
    ASSERT_TRUE(p.waitForStarted(10000));
    ASSERT_EQ(ready.Wait(30000), "READY=1");  // the window is up
    EXPECT_FALSE(fs::exists(Settings()));     // only a close writes it
    p.terminate();
    ASSERT_TRUE(p.waitForFinished(10000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.exitCode(), 0);

    ASSERT_TRUE(fs::exists(Settings()));
    lumivex::Settings s;  // what goes in is the window's test
    s.InitAll();
    EXPECT_EQ(PrefFile::LoadPref(s, Settings().parent_path()), LoadResult::Loaded);
    EXPECT_FALSE(fs::exists(temp));
}

TEST_F(ProgramTest, AFolderArgumentIsExtractedAndWhatIsNoFolderIsRefused) {
    const fs::path source = home_ / "Card";
    const fs::path target = home_ / "Out";
    fs::create_directories(source);
    fs::create_directories(target);
    fixtures::ExifJpegBuilder b;
    b.Ifd0().Ascii(0x010F, "M");
    b.JpegThumbnail(160, 120);
    b.Write(source / "IMG_0001.JPG");
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
    ReadySocket ready(home_ / "notify");
    env_.insert("NOTIFY_SOCKET", QString::fromStdString(ready.path()));
    env_.insert("QT_QPA_PLATFORM", "xcb");
    env_.insert("DISPLAY", display);
    QProcess p;
    p.setProcessEnvironment(env_);
    p.start(LUMIVEX_PLUS_PATH, {});
    ASSERT_TRUE(p.waitForStarted(10000));
    ASSERT_EQ(ready.Wait(30000), "READY=1");
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
