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

// Runs the real script with PATH holding only stand-ins for gio, udisksctl, findmnt and umount
// that log their arguments, each in brackets so that a split argument shows.
TEST(DiskEjectorTest, ScriptTriesGioThenUdisksThenUmount) {
    struct Tool {
        std::string name, code, output = "";
    };
    const std::string card = "/media/ann/EOS DIGITAL";
    const std::string gio = "gio [mount] [-e] [" + card + "]\n";
    const std::string udisks = "findmnt [-n] [-o] [SOURCE] [--mountpoint] [" + card +
                               "]\nudisksctl [unmount] [-b] [/dev/sdb1] [--no-user-interaction]\n";
    const std::string umount = "umount [" + card + "]\n";
    const Tool findmnt{"findmnt", "0", "/dev/sdb1"};
    // clang-format off
    const struct {
        const char* name;
        std::vector<Tool> tools;
        std::vector<std::string> args;
        int code;
        std::string log;
    } cases[] = {
        {"gio first", {{"gio", "0"}, {"udisksctl", "0"}, findmnt, {"umount", "0"}}, {card}, 0, gio},
        // A reader that cannot be powered off: the card is unmounted and safe to pull all the same.
        {"udisks when gio fails", {{"gio", "1"}, {"udisksctl", "$([ \"$1\" = power-off ] && echo 1 || echo 0)"}, findmnt, {"umount", "0"}},
         {card}, 0, gio + udisks + "udisksctl [power-off] [-b] [/dev/sdb1] [--no-user-interaction]\n"},
        {"umount alone", {{"umount", "0"}}, {card}, 0, umount},
        // Every tool fails: the code of the last attempt comes back.
        {"all fail", {{"gio", "5"}, {"udisksctl", "6"}, findmnt, {"umount", "32"}}, {card}, 32, gio + udisks + umount},
        {"no mount point", {{"gio", "0"}, {"udisksctl", "0"}, findmnt, {"umount", "0"}}, {}, 2, ""},
    };
    // clang-format on
    const fs::path script = fs::path(LUMIVEX_SOURCE_DIR) / "resources" / DiskEjector::kScriptName;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        fixtures::ScratchDir dir("lvx-eject");
        const fs::path bin = dir.path() / "bin", log = dir.path() / "log";
        ASSERT_TRUE(fs::create_directory(bin));
        for (const Tool& t : c.tools) {
            std::ofstream(bin / t.name)
                << "#!/bin/sh\n{ printf '%s' '" << t.name
                << "'; for a in \"$@\"; do printf ' [%s]' \"$a\"; done; echo; } >> '"
                << log.string() << "'\n"
                << (t.output.empty() ? "" : "echo '" + t.output + "'\n") << "exit " << t.code
                << "\n";
            fs::permissions(bin / t.name, fs::perms::owner_all);
        }
        std::vector<std::string> argv{"/usr/bin/env", "PATH=" + bin.string(), "/bin/sh",
                                      script.string()};
        argv.insert(argv.end(), c.args.begin(), c.args.end());
        EXPECT_EQ(DiskEjector::Run(argv, 10s), c.code);
        std::stringstream text;
        text << std::ifstream(log).rdbuf();
        EXPECT_EQ(text.str(), c.log);
    }
}

}  // namespace
}  // namespace lumivex
