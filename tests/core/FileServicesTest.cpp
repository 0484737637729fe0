#include "core/FileServices.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "ReadBack.h"
#include "ScratchDir.h"
#include "core/OutputFile.h"

namespace fs = std::filesystem;

namespace lumivex {
namespace {

using fixtures::ScratchDir;

void Touch(const fs::path& file, const std::string& text = "x") {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

// Runs `body` in a child under a resource limit that must not reach the other tests; its
// exit code, or -1.
template <typename Body>
int InChild(int resource, rlim_t limit, Body body) {
    const pid_t pid = fork();
    if (pid == 0) {
        std::signal(SIGXFSZ, SIG_IGN);  // a short write and EFBIG instead of a kill
        close_range(3, ~0u, 0);
        const rlimit lim{limit, limit};
        setrlimit(resource, &lim);
        _exit(body());
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Never through a link, and on failure stop unless told to go on.
TEST(FileServices, DeleteEntireFolder) {
    const struct {
        const char* what;
        fs::path (*setup)(const fs::path& root, const fs::path& outside);  // what to delete
        int result;
        bool gone;
    } cases[] = {
        // clang-format off
        {"links inside", [](const fs::path& root, const fs::path& outside) {
             Touch(root / "t" / "a.txt");
             Touch(root / "t" / "sub" / "deeper" / "c.txt");
             fs::create_directory_symlink(outside, root / "t" / "linkdir");
             fs::create_symlink(outside / "keep.txt", root / "t" / "sub" / "linkfile");
             fs::create_symlink(root / "nowhere", root / "t" / "dangling");
             return root / "t"; }, 0, true},
        {"folder is a link", [](const fs::path& root, const fs::path& outside) {
             fs::create_directory_symlink(outside, root / "link"); return root / "link"; }, 0, true},
        {"link given with a slash", [](const fs::path& root, const fs::path& outside) {
             fs::create_directory_symlink(outside, root / "link"); return root / "link" / ""; }, 0, true},
        {"missing", [](const fs::path& root, const fs::path&) { return root / "none"; }, 0, true},
        {"dot-dot", [](const fs::path& root, const fs::path&) {
             fs::create_directory(root / "sub"); return root / "sub" / ".."; }, EINVAL, false},
        {"a plain file", [](const fs::path& root, const fs::path&) {
             Touch(root / "file"); return root / "file"; }, ENOTDIR, false},
        // clang-format on
    };
    for (const auto& c : cases) {
        ScratchDir root, outside;
        Touch(outside.path() / "keep.txt");
        const fs::path target = c.setup(root.path(), outside.path());
        EXPECT_EQ(gDeleteEntireFolder(target, false), c.result) << c.what;
        EXPECT_EQ(!fs::exists(fs::symlink_status(target)), c.gone) << c.what;
        EXPECT_TRUE(fs::exists(outside.path() / "keep.txt")) << c.what;
    }
    for (const bool continueIfErrors : {false, true}) {
        ScratchDir dir;
        const fs::path root = dir.path() / "root";
        fs::path deep = root / "a_chain";
        for (int i = 0; i < 40; ++i)
            deep /= "d";
        Touch(deep / "leaf.txt");
        Touch(root / "b_sub" / "keep.txt");
        Touch(root / "file.txt");
        // The descriptors run out inside the deep chain: a failure that permission bits cannot
        // give when the tests run as root.
        EXPECT_EQ(
            InChild(RLIMIT_NOFILE, 6, [&] { return gDeleteEntireFolder(root, continueIfErrors); }),
            EMFILE);
        EXPECT_FALSE(fs::exists(root / "file.txt"));  // files go first
        EXPECT_TRUE(fs::exists(deep / "leaf.txt"));
        EXPECT_EQ(fs::exists(root / "b_sub" / "keep.txt"), !continueIfErrors);
    }
}

TEST(FileServices, TemporalFolderIsOursOrNothing) {
    const struct {
        const char* what;
        void (*setup)(const fs::path& folder);
        bool usable;  // only a folder the call made itself, private to the user
    } cases[] = {
        // clang-format off
        {"missing", [](const fs::path&) {}, true},
        {"a link", [](const fs::path& f) { fs::create_directory_symlink(f.parent_path(), f); }, false},
        {"a file", [](const fs::path& f) { Touch(f); }, false},
        {"someone else's", [](const fs::path& f) {  // only root can give a folder away
             fs::create_directory(f);
             if (chown(f.c_str(), geteuid() + 1, getegid()) != 0) fs::remove(f); }, false},
        // clang-format on
    };
    const char* saved = std::getenv("TMPDIR");
    const std::string savedText = saved ? saved : "";
    for (const auto& c : cases) {
        ScratchDir dir;
        const fs::path folder = dir.path() / "com.ZenmoraWorksJP.LumivexPlus";
        c.setup(folder);
        if (!c.usable && !fs::exists(fs::symlink_status(folder))) continue;
        setenv("TMPDIR", dir.path().c_str(), 1);
        const fs::path got = gGetTemporalFolder();
        saved ? setenv("TMPDIR", savedText.c_str(), 1) : unsetenv("TMPDIR");
        EXPECT_EQ(got, c.usable ? folder : fs::path()) << c.what;
        const fs::perms made = fs::status(folder).permissions() & fs::perms::all;
        EXPECT_EQ(c.usable ? made : fs::perms::owner_all, fs::perms::owner_all) << c.what;
    }
}

// Linux keeps no type codes: only a folder, or a link to one, has them.
TEST(FileServices, OnlyFoldersHaveTypeAndCreator) {
    ScratchDir dir;
    Touch(dir.path() / "file.jpg");
    fs::create_directory_symlink(dir.path(), dir.path() / "link");
    for (const auto& [name, folder] :
         {std::pair{"", true}, {"link", true}, {"file.jpg", false}, {"missing", false}}) {
        EXPECT_EQ(gFileMatch(dir.path() / name, "macs", "FOLD"), folder) << name;
        EXPECT_FALSE(gFileMatch(dir.path() / name, "MACS", "")) << name;
    }
}

TEST(OutputFile, CreateNewWritesOnlyUnusedNames) {
    using R = OutputFile::Result;
    const std::vector<std::uint8_t> bytes{'n', 'e', 'w'};
    const struct {
        const char* what;
        void (*setup)(const fs::path& dir);  // prepares dir / "t.jpg"
        R result;
        const char* after;  // what dir / "t.jpg" reads afterwards
    } cases[] = {
        // clang-format off
        {"free name", [](const fs::path&) {}, R::Written, "new"},
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
        EXPECT_EQ(OutputFile::CreateNew(dir.path() / "t.jpg", bytes), c.result) << c.what;
        EXPECT_EQ(fixtures::ReadText(dir.path() / "t.jpg"), c.after) << c.what;
        EXPECT_FALSE(fs::exists(dir.path() / "nowhere.jpg")) << c.what;
    }
    ScratchDir dir;
    EXPECT_EQ(OutputFile::CreateNew(dir.path() / "missing" / "t.jpg", bytes), R::Failed);
}

// A write that stops part-way (here the file size limit, standing in for a full disk) must not
// leave the part under the name. Run in a child so that the limit does not reach other tests.
TEST(OutputFile, CreateNewRemovesAHalfWrittenFile) {
    ScratchDir dir;
    const fs::path target = dir.path() / "t.jpg";
    const std::vector<std::uint8_t> bytes(3 * 4096, 0x5A);
    EXPECT_EQ(
        InChild(RLIMIT_FSIZE, 4096, [&] { return int(OutputFile::CreateNew(target, bytes)); }),
        int(OutputFile::Result::Failed));
    EXPECT_FALSE(fs::exists(target));
    ASSERT_EQ(OutputFile::CreateNew(target, bytes), OutputFile::Result::Written);
    EXPECT_EQ(fs::file_size(target), bytes.size());
}

}  // namespace
}  // namespace lumivex
