#pragma once
// Ejects a disk through a small shell script installed beside the program, so that the way a
// disk is ejected (gio, udisksctl, umount) can be changed without a rebuild. Qt-free.
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace lumivex {

class DiskEjector {
  public:
    static constexpr std::string_view kScriptName = "EjectDisk.sh";

    // <exeDir>/../share/lumivex-plus/EjectDisk.sh, lexically normal: the layout of both the
    // build tree and an installed prefix.
    static std::filesystem::path ScriptPath(const std::filesystem::path& exeDir);
    // The argument vector that runs `script` on `mountPath`. No shell parses it, so blanks and
    // quotes in a disk label stay one argument.
    static std::vector<std::string> Command(const std::filesystem::path& script,
                                            const std::string& mountPath);
    // Runs argv[0] (searched on PATH when it has no slash) with stdin from /dev/null and the
    // caller's stdout and stderr, and waits at most `limit`. Returns its exit code, 128 + the
    // signal that killed it, 124 when it ran out of time (it and everything it started are
    // killed), 127 when it could not be started or argv is empty, and -1 when someone else
    // reaped it first.
    static int Run(const std::vector<std::string>& argv, std::chrono::milliseconds limit);
};

}  // namespace lumivex
