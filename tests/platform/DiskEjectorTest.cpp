// Ejecting a disk: the script's place, the runner's exit codes and timeout, and the real script
// against stand-ins for the tools it calls.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "ReadBack.h"
#include "ScratchDir.h"
#include "platform/DiskEjector.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Gone or a zombie that only waits for its new parent to reap it.
bool Ended(pid_t pid) {
    const std::string stat = fixtures::ReadText("/proc/" + std::to_string(pid) + "/stat");
    const std::size_t paren = stat.rfind(')');
    return paren == std::string::npos || stat.compare(paren + 2, 1, "Z") == 0;
}

TEST(DiskEjectorTest, ScriptPathAndExitCodes) {
    EXPECT_EQ(DiskEjector::ScriptPath("/opt/lvx/bin/"),
              fs::path("/opt/lvx/share/lumivex-plus/EjectDisk.sh"));
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "kill -TERM $$"}, 10s), 128 + 15);
    // stdin is /dev/null, so a child that reads it gets end of file instead of blocking.
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", "read x; exit $?"}, 10s), 1);
    EXPECT_EQ(DiskEjector::Run({"/nonexistent/program"}, 10s), 127);
    EXPECT_EQ(DiskEjector::Run({}, 10s), 127);
}

// A hung script is killed with everything it started, not just the shell.
TEST(DiskEjectorTest, TimeoutEndsTheWholeProcessGroup) {
    fixtures::ScratchDir dir("lvx-eject");
    const fs::path pidFile = dir.path() / "pid";
    const std::string script = "sleep 30 & echo $! > '" + pidFile.string() + "'; wait";
    EXPECT_EQ(DiskEjector::Run({"/bin/sh", "-c", script}, 300ms), 124);
    const pid_t grandchild = std::stoi(fixtures::ReadText(pidFile));
    for (int i = 0; i < 500 && !Ended(grandchild); ++i)
        std::this_thread::sleep_for(10ms);
    EXPECT_TRUE(Ended(grandchild));
    if (!Ended(grandchild)) ::kill(grandchild, SIGKILL);
}

// Runs the real script with PATH holding only stand-ins for gio, udisksctl, findmnt and umount
// that log their arguments, each in brackets so that a split argument shows, and exit with the
// code given ("" leaves the tool out).
TEST(DiskEjectorTest, ScriptTriesGioThenUdisksThenUmount) {
    const std::string card = "/media/ann/EOS DIGITAL",
                      dev = " [-b] [/dev/sdb1] [--no-user-interaction]\n";
    const std::string gio = "gio [mount] [-e] [" + card + "]\n", umount = "umount [" + card + "]\n";
    const std::string udisks =
        "findmnt [-n] [-o] [SOURCE] [--mountpoint] [" + card + "]\nudisksctl [unmount]" + dev;
    const struct {
        const char* name;
        std::string gio, udisks, umount;
        int code;
        std::string log;
    } cases[] = {
        // clang-format off
        {"gio first", "0", "0", "0", 0, gio},
        // A reader that cannot be powered off: the card is unmounted and safe to pull all the same.
        {"udisks when gio fails", "1", "$([ \"$1\" = power-off ] && echo 1 || echo 0)", "0", 0,
         gio + udisks + "udisksctl [power-off]" + dev},
        {"umount alone", "", "", "0", 0, umount},
        // Every tool fails: the code of the last attempt comes back.
        {"all fail", "5", "6", "32", 32, gio + udisks + umount},
        {"no mount point", "0", "0", "0", 2, ""},
        // clang-format on
    };
    const fs::path script = fs::path(LUMIVEX_SOURCE_DIR) / "resources" / DiskEjector::kScriptName;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        fixtures::ScratchDir dir("lvx-eject");
        const fs::path bin = dir.path() / "bin", log = dir.path() / "log";
        ASSERT_TRUE(fs::create_directory(bin));
        const std::pair<std::string, std::string> tools[] = {
            {"gio", c.gio}, {"udisksctl", c.udisks}, {"findmnt", c.udisks}, {"umount", c.umount}};
        for (const auto& [name, code] : tools) {
            if (code.empty()) continue;
            std::ofstream(bin / name)
                << "#!/bin/sh\n{ printf %s " << name
                << "; for a in \"$@\"; do printf ' [%s]' \"$a\"; done; echo; } >> '" << log.string()
                << "'\n"
                << (name == "findmnt" ? "echo /dev/sdb1; exit 0" : "exit " + code) << "\n";
            fs::permissions(bin / name, fs::perms::owner_all);
        }
        std::vector<std::string> argv{"/usr/bin/env", "PATH=" + bin.string(), "/bin/sh",
                                      script.string(), card};
        if (c.log.empty()) argv.pop_back();
        EXPECT_EQ(DiskEjector::Run(argv, 10s), c.code);
        EXPECT_EQ(fixtures::ReadText(log), c.log);
    }
}

}  // namespace
}  // namespace lumivex
