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

std::string ReadText(const fs::path& p) {
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(OutputFile, CreateNewWritesOnlyUnusedNames) {
    struct Case {
        const char* what;
        void (*setup)(const fs::path& dir);  // prepares dir / "t.jpg"
        OutputFile::Result result;
        const char* after;  // what dir / "t.jpg" reads afterwards
    };
    // clang-format off
    const Case cases[] = {
        {"free name", [](const fs::path&) {}, OutputFile::Result::Written, "new bytes"},
        {"file", [](const fs::path& d) { std::ofstream(d / "t.jpg") << "source"; },
         OutputFile::Result::Exists, "source"},
        {"empty file", [](const fs::path& d) { std::ofstream(d / "t.jpg").flush(); },
         OutputFile::Result::Exists, ""},
        {"link to a file", [](const fs::path& d) {
             std::ofstream(d / "source.jpg") << "source";
             fs::create_symlink(d / "source.jpg", d / "t.jpg");
         }, OutputFile::Result::Exists, "source"},
        {"dangling link", [](const fs::path& d) {
             fs::create_symlink(d / "nowhere.jpg", d / "t.jpg");
         }, OutputFile::Result::Exists, ""},
    };
    // clang-format on
    for (const Case& c : cases) {
        ScratchDir dir;
        c.setup(dir.path());
        EXPECT_EQ(OutputFile::CreateNew(dir.path() / "t.jpg", Bytes("new bytes")), c.result)
            << c.what;
        EXPECT_EQ(ReadText(dir.path() / "t.jpg"), c.after) << c.what;
        EXPECT_FALSE(fs::exists(dir.path() / "nowhere.jpg")) << c.what;
    }

    ScratchDir dir;
    fs::create_directory(dir.path() / "sub");
    EXPECT_EQ(OutputFile::CreateNew(dir.path() / "sub", Bytes("x")), OutputFile::Result::Exists);
    EXPECT_EQ(OutputFile::CreateNew(dir.path() / "missing" / "t.jpg", Bytes("x")),
              OutputFile::Result::Failed);
    EXPECT_EQ(OutputFile::CreateNew(dir.path() / "empty.jpg", {}), OutputFile::Result::Written);
    EXPECT_EQ(fs::file_size(dir.path() / "empty.jpg"), 0u);

    // By name in an open folder: the same rules, relative to that folder.
    const int folder = ::open(dir.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(folder, 0);
    EXPECT_EQ(OutputFile::CreateNewIn(folder, "in.jpg", Bytes("in")), OutputFile::Result::Written);
    EXPECT_EQ(OutputFile::CreateNewIn(folder, "in.jpg", Bytes("again")),
              OutputFile::Result::Exists);
    ::close(folder);
    EXPECT_EQ(ReadText(dir.path() / "in.jpg"), "in");
}

// A write that stops part-way (here the file size limit, standing in for a full disk) must not
// leave the part under the name. Run in a child so that the limit does not reach other tests.
TEST(OutputFile, CreateNewRemovesAHalfWrittenFile) {
    ScratchDir dir;
    const fs::path target = dir.path() / "t.jpg";
    const std::vector<std::uint8_t> bytes(3 * 4096, 0x5A);
    struct Run {
        rlim_t limit;
        int result;
        bool kept;
    };
    for (const Run run :
         {Run{4096, static_cast<int>(OutputFile::Result::Failed), false},
          Run{RLIM_INFINITY, static_cast<int>(OutputFile::Result::Written), true}}) {
        const pid_t pid = fork();
        if (pid == 0) {
            std::signal(SIGXFSZ, SIG_IGN);  // a short write and EFBIG instead of a kill
            const rlimit limit{run.limit, run.limit};
            if (run.limit != RLIM_INFINITY) setrlimit(RLIMIT_FSIZE, &limit);
            _exit(static_cast<int>(OutputFile::CreateNew(target, bytes)));
        }
        int status = 0;
        waitpid(pid, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), run.result) << run.limit;
        EXPECT_EQ(fs::exists(target), run.kept) << run.limit;
    }
    EXPECT_EQ(fs::file_size(target), bytes.size());
}

}  // namespace
}  // namespace lumivex
