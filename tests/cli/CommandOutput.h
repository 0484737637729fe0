#pragma once
// Runs one `lumivex` command with its output and errors caught, and with the settings of a
// fresh user, whatever the machine running the tests has configured.
#include <grp.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "CameraFiles.h"
#include "ExifJpegBuilder.h"
#include "ScratchDir.h"

namespace lumivex::test {

struct Output {
    int status = 0;
    std::string out, err;
};

inline std::string ReadAll(std::FILE* f) {
    std::string s(static_cast<std::size_t>(std::ftell(f)), '\0');
    std::rewind(f);
    s.resize(std::fread(s.data(), 1, s.size(), f));
    std::fclose(f);
    return s;
}

inline void UseFreshSettings() {
    static const fixtures::ScratchDir config("lvx-config");
    ::setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
}

template <typename Command>
Output RunCommand(const std::vector<std::string>& args) {
    UseFreshSettings();
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = Command().Run(args, out, err);
    return {status, ReadAll(out), ReadAll(err)};
}

inline std::string Drain(int fd) {
    std::string s;
    char buf[4096];
    for (ssize_t n; (n = ::read(fd, buf, sizeof buf)) > 0;)
        s.append(buf, static_cast<std::size_t>(n));
    ::close(fd);
    return s;
}

// Runs the command in a child process that first calls `setup`, for conditions the test
// process must not live under itself. The output goes through pipes, which no file size limit
// touches; it must stay small. Nothing when `setup` says the condition cannot be had here.
template <typename Command>
std::optional<Output> RunInChild(const std::vector<std::string>& args,
                                 const std::function<bool()>& setup) {
    UseFreshSettings();
    int out[2], err[2];
    if (::pipe(out) != 0 || ::pipe(err) != 0) return std::nullopt;
    std::fflush(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        if (!setup()) ::_exit(77);
        std::FILE* o = ::fdopen(out[1], "w");
        std::FILE* e = ::fdopen(err[1], "w");
        const int status = Command().Run(args, o, e);
        std::fclose(o);
        std::fclose(e);
        ::_exit(status);
    }
    ::close(out[1]);
    ::close(err[1]);
    Output result{0, Drain(out[0]), Drain(err[0])};
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 77) return std::nullopt;
    result.status = WEXITSTATUS(status);
    return result;
}

// A setup for RunInChild: permission bits hold for root too once it is the nobody user.
inline bool Unprivileged() {
    if (::geteuid() != 0) return true;
    return ::setgroups(0, nullptr) == 0 && ::setgid(65534) == 0 && ::setuid(65534) == 0;
}

// A setup for RunInChild: a disk that fills after a few bytes of every file.
inline bool TinyFileLimit() {
    std::signal(SIGXFSZ, SIG_IGN);  // a write past the limit then fails with EFBIG
    const rlimit limit{16, 16};
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

// A camera picture whose thumbnail `thumb` gives.
inline fixtures::Layout Camera(const std::filesystem::path& file,
                               const std::function<void(fixtures::ExifJpegBuilder&)>& thumb) {
    fixtures::ExifJpegBuilder b;
    b.Ifd0().Ascii(0x010F, "M");
    thumb(b);
    return b.Write(file);
}

// Each piece must show up in `text`.
inline void ExpectPieces(const std::string& text, std::initializer_list<std::string> pieces) {
    for (const std::string& piece : pieces)
        EXPECT_NE(text.find(piece), std::string::npos) << piece << " in " << text;
}

}  // namespace lumivex::test
