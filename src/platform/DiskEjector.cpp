#include "platform/DiskEjector.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

extern char** environ;

namespace lumivex {
namespace {

// posix_spawn's objects, destroyed on every way out.
struct SpawnSetup {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attr;
    SpawnSetup() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attr);
    }
    ~SpawnSetup() {
        posix_spawnattr_destroy(&attr);
        posix_spawn_file_actions_destroy(&actions);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;
};

int ExitCode(int status) {
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return -1;
}

// Blocking wait that survives signals; -1 when the child is not ours to reap any more.
int Reap(pid_t pid) {
    int status = 0;
    pid_t r;
    do {
        r = ::waitpid(pid, &status, 0);
    } while (r < 0 && errno == EINTR);
    return r == pid ? ExitCode(status) : -1;
}

}  // namespace

std::filesystem::path DiskEjector::ScriptPath(const std::filesystem::path& exeDir) {
    return (exeDir / ".." / "share" / "lumivex-plus" / kScriptName).lexically_normal();
}

std::vector<std::string> DiskEjector::Command(const std::filesystem::path& script,
                                              const std::string& mountPath) {
    return {"/bin/sh", script.string(), mountPath};
}

int DiskEjector::Run(const std::vector<std::string>& argv, std::chrono::milliseconds limit) {
    if (argv.empty()) return 127;
    std::vector<char*> args;
    args.reserve(argv.size() + 1);
    for (const std::string& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);

    SpawnSetup setup;
    posix_spawn_file_actions_addopen(&setup.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    // Its own process group, so that a timeout kills what the script started as well; default
    // signal handling and an empty mask, whatever this thread had set up.
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&setup.attr, &none);
    posix_spawnattr_setsigdefault(&setup.attr, &all);
    posix_spawnattr_setpgroup(&setup.attr, 0);
    posix_spawnattr_setflags(
        &setup.attr, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    pid_t pid = 0;
    if (posix_spawnp(&pid, args[0], &setup.actions, &setup.attr, args.data(), environ) != 0)
        return 127;

    const auto deadline = std::chrono::steady_clock::now() + limit;
    for (;;) {
        int status = 0;
        const pid_t r = ::waitpid(pid, &status, WNOHANG);
        if (r == pid) return ExitCode(status);
        if (r < 0 && errno != EINTR) return -1;
        if (std::chrono::steady_clock::now() >= deadline) break;
        // Ejecting takes a second or more, so 10 ms between looks costs nothing.
        const timespec pause{0, 10'000'000};
        ::nanosleep(&pause, nullptr);
    }
    ::kill(-pid, SIGKILL);
    ::kill(pid, SIGKILL);
    Reap(pid);
    return 124;
}

}  // namespace lumivex
