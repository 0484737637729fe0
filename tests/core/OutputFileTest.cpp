#include "core/OutputFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "ScratchDir.h"

namespace fs = std::filesystem;

namespace lumivex {
namespace {

using fixtures::ScratchDir;

// "" for anything but a file.
std::string ReadText(const fs::path& p) {
    if (!fs::is_regular_file(p)) return "";
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(OutputFile, CreateNewWritesOnlyUnusedNames) {
    using R = OutputFile::Result;
    const struct {
        const char* what;
        void (*setup)(const fs::path& dir);  // prepares dir / "t.jpg"
        R result;
        const char* after;  // what dir / "t.jpg" reads afterwards
    } cases[] = {
        // clang-format off
        {"free name", [](const fs::path&) {}, R::Written, "new bytes"},
        {"file", [](const fs::path& d) { std::ofstream(d / "t.jpg") << "source"; }, R::Exists, "source"},
        {"folder", [](const fs::path& d) { fs::create_directory(d / "t.jpg"); }, R::Exists, ""},
        {"link to a file", [](const fs::path& d) {
             std::ofstream(d / "source.jpg") << "source";
             fs::create_symlink(d / "source.jpg", d / "t.jpg"); }, R::Exists, "source"},
        {"dangling link", [](const fs::path& d) { fs::create_symlink(d / "nowhere.jpg", d / "t.jpg"); },
         R::Exists, ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        ScratchDir dir;
        c.setup(dir.path());
        EXPECT_EQ(OutputFile::CreateNew(dir.path() / "t.jpg", Bytes("new bytes")), c.result)
            << c.what;
        EXPECT_EQ(ReadText(dir.path() / "t.jpg"), c.after) << c.what;
        EXPECT_FALSE(fs::exists(dir.path() / "nowhere.jpg")) << c.what;
    }
    ScratchDir dir;
    EXPECT_EQ(OutputFile::CreateNew(dir.path() / "missing" / "t.jpg", Bytes("x")), R::Failed);
    // By name in an open folder: the same rules, relative to that folder.
    const int folder = ::open(dir.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    EXPECT_EQ(OutputFile::CreateNewIn(folder, "in.jpg", Bytes("in")), R::Written);
    EXPECT_EQ(OutputFile::CreateNewIn(folder, "in.jpg", Bytes("again")), R::Exists);
    ::close(folder);
    EXPECT_EQ(ReadText(dir.path() / "in.jpg"), "in");
}

// A write that stops part-way (here the file size limit, standing in for a full disk) must not
// leave the part under the name. Run in a child so that the limit does not reach other tests.
TEST(OutputFile, CreateNewRemovesAHalfWrittenFile) {
    ScratchDir dir;
    const fs::path target = dir.path() / "t.jpg";
    const std::vector<std::uint8_t> bytes(3 * 4096, 0x5A);
    using R = OutputFile::Result;
    for (const auto& [limit, result] :
         {std::pair{rlim_t{4096}, R::Failed}, {RLIM_INFINITY, R::Written}}) {
        const pid_t pid = fork();
        if (pid == 0) {
            std::signal(SIGXFSZ, SIG_IGN);  // a short write and EFBIG instead of a kill
            const rlimit lim{limit, limit};
            setrlimit(RLIMIT_FSIZE, &lim);
            _exit(static_cast<int>(OutputFile::CreateNew(target, bytes)));
        }
        int status = 0;
        waitpid(pid, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), int(result)) << limit;
        EXPECT_EQ(fs::exists(target), result == R::Written) << limit;
    }
    EXPECT_EQ(fs::file_size(target), bytes.size());
}

}  // namespace
}  // namespace lumivex
