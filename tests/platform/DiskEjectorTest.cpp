// Ejecting a disk: the script's place, its argument vector, the runner's exit codes, and the
// real script against stand-ins for the tools it calls.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ScratchDir.h"
#include "platform/DiskEjector.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

TEST(DiskEjectorTest, ScriptPathAndCommand) {
    EXPECT_EQ(DiskEjector::ScriptPath("/work/build/default/src"),
              fs::path("/work/build/default/share/lumivex-plus/EjectDisk.sh"));
    EXPECT_EQ(DiskEjector::ScriptPath("/opt/lvx/bin/"),
              fs::path("/opt/lvx/share/lumivex-plus/EjectDisk.sh"));

    const std::string label = "/media/ann/My \"EOS\" Card";
    EXPECT_EQ(DiskEjector::Command("/s/EjectDisk.sh", label),
              (std::vector<std::string>{"/bin/sh", "/s/EjectDisk.sh", label}));
}

TEST(DiskEjectorTest, RunReturnsExitCodesSignalsAndTimeouts) {
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "exit 3"}, 10s), 3);
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "exit 0"}, 10s), 0);
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "kill -TERM $$"}, 10s), 128 + 15);
    // stdin is /dev/null, so a child that reads it gets end of file instead of blocking.
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "read x; exit $?"}, 10s), 1);
    EXPECT_EQ(DiskEjector::Run({"/nonexistent/program"}, 10s), 127);
    EXPECT_EQ(DiskEjector::Run({}, 10s), 127);
    EXPECT_EQ(DiskEjector::Run({"sleep", "30"}, 100ms), 124);
}

// A folder of stand-ins for gio, udisksctl, findmnt and umount that log their arguments one
// a line, so that a split argument shows.
class EjectScript : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_FALSE(dir_.path().empty());
        fs::create_directory(bin_);
    }

    void Tool(const std::string& name, const std::string& code, const std::string& output = "") {
        const fs::path file = bin_ / name;
        std::ofstream(file) << "#!/bin/sh\n"
                            << "{ printf '%s' '" << name
                            << "'; for a in \"$@\"; do printf ' [%s]' \"$a\"; done; echo; } >> '"
                            << log_.string() << "'\n"
                            << (output.empty() ? "" : "echo '" + output + "'\n") << "exit " << code
                            << "\n";
        fs::permissions(file, fs::perms::owner_all);
    }

    int Eject(const std::vector<std::string>& args) {
        std::vector<std::string> argv{"/usr/bin/env", "PATH=" + bin_.string(), "/bin/sh",
                                      script_.string()};
        argv.insert(argv.end(), args.begin(), args.end());
        return DiskEjector::Run(argv, 10s);
    }

    std::string Log() const {
        std::ifstream in(log_);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    fixtures::ScratchDir dir_{"lvx-eject"};
    fs::path bin_ = dir_.path() / "bin";
    fs::path log_ = dir_.path() / "log";
    fs::path script_ = fs::path(LUMIVEX_SOURCE_DIR) / "resources" / DiskEjector::kScriptName;
    const std::string card_ = "/media/ann/EOS DIGITAL";
};

TEST_F(EjectScript, GioFirst) {
    Tool("gio", "0");
    Tool("udisksctl", "0");
    Tool("findmnt", "0", "/dev/sdb1");
    Tool("umount", "0");
    EXPECT_EQ(Eject({card_}), 0);
    EXPECT_EQ(Log(), "gio [mount] [-e] [/media/ann/EOS DIGITAL]\n");
}

TEST_F(EjectScript, UdisksWhenGioFails) {
    Tool("gio", "1");
    // A reader that cannot be powered off: the card is unmounted and safe to pull all the same.
    Tool("udisksctl", "$([ \"$1\" = power-off ] && echo 1 || echo 0)");
    Tool("findmnt", "0", "/dev/sdb1");
    Tool("umount", "0");
    EXPECT_EQ(Eject({card_}), 0);
    EXPECT_EQ(Log(),
              "gio [mount] [-e] [/media/ann/EOS DIGITAL]\n"
              "findmnt [-n] [-o] [SOURCE] [--mountpoint] [/media/ann/EOS DIGITAL]\n"
              "udisksctl [unmount] [-b] [/dev/sdb1] [--no-user-interaction]\n"
              "udisksctl [power-off] [-b] [/dev/sdb1] [--no-user-interaction]\n");
}

TEST_F(EjectScript, UmountAloneAndFailures) {
    Tool("umount", "0");
    EXPECT_EQ(Eject({card_}), 0);
    EXPECT_EQ(Log(), "umount [/media/ann/EOS DIGITAL]\n");

    // Every tool fails: the code of the last attempt comes back.
    fs::remove(log_);
    Tool("gio", "5");
    Tool("udisksctl", "6");
    Tool("findmnt", "0", "/dev/sdb1");
    Tool("umount", "32");
    EXPECT_EQ(Eject({card_}), 32);
    EXPECT_EQ(Log(),
              "gio [mount] [-e] [/media/ann/EOS DIGITAL]\n"
              "findmnt [-n] [-o] [SOURCE] [--mountpoint] [/media/ann/EOS DIGITAL]\n"
              "udisksctl [unmount] [-b] [/dev/sdb1] [--no-user-interaction]\n"
              "umount [/media/ann/EOS DIGITAL]\n");

    fs::remove(log_);
    EXPECT_EQ(Eject({}), 2);
    EXPECT_EQ(Log(), "");
}

}  // namespace
}  // namespace lumivex
