#include "core/FileServices.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>

#include "core/FolderItemEx.h"

#include "ScratchDir.h"

namespace fs = std::filesystem;

namespace lumivex {
namespace {

using fixtures::ScratchDir;

void Touch(const fs::path& file, const std::string& text = "x") {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

// Runs the deletion in a child whose descriptor limit runs out inside a deep chain of
// folders: a failure that permission bits cannot give when the tests run as root.
int DeleteWithFewDescriptors(const fs::path& folder, bool continueIfErrors) {
    const pid_t pid = fork();
    if (pid == 0) {
        close_range(3, ~0u, 0);
        const rlimit limit{6, 6};
        setrlimit(RLIMIT_NOFILE, &limit);
        _exit(gDeleteEntireFolder(folder, continueIfErrors));
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
        EXPECT_EQ(DeleteWithFewDescriptors(root, continueIfErrors), EMFILE);
        EXPECT_FALSE(fs::exists(root / "file.txt"));  // files go first
        EXPECT_TRUE(fs::exists(deep / "leaf.txt"));
        EXPECT_EQ(fs::exists(root / "b_sub" / "keep.txt"), !continueIfErrors);
    }
}

TEST(FileServices, TemporalFolderIsOursOrNothing) {
    const struct {
        const char* what;
        void (*setup)(const fs::path& folder);
        bool usable, made;  // made: created by the call, so private to the user
    } cases[] = {
        // clang-format off
        {"missing", [](const fs::path&) {}, true, true},
        {"a link", [](const fs::path& f) { fs::create_directory_symlink(f.parent_path(), f); },
         false, false},
        {"a file", [](const fs::path& f) { Touch(f); }, false, false},
        {"someone else's", [](const fs::path& f) {  // only root can give a folder away
             fs::create_directory(f);
             if (chown(f.c_str(), geteuid() + 1, getegid()) != 0) fs::remove(f); }, false, false},
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
        if (c.made) {
            EXPECT_EQ(fs::status(folder).permissions() & fs::perms::all, fs::perms::owner_all);
        }
    }
}

TEST(FileServices, BundleIdentifierOnTheLineAfterTheKey) {
    const std::string id = "com.Google.GoogleEarthPro", key = "<key>CFBundleIdentifier</key>";
    const std::string value = "<string>" + id + "</string>";
    const struct {
        const char* what;
        std::string plist;  // "" writes no file
        std::string wanted;
        bool found;
    } cases[] = {
        // clang-format off
        {"plain", "<dict>\n\t" + key + "\n\t" + value + "\n</dict>\n", "COM.google.googleearthpro", true},
        {"other id", key + "\n" + value, "com.Google.GoogleEarth", false},
        {"crlf", key + "\r\n" + value + "\r\n", id, true}, {"cr", key + "\r" + value, id, true},
        {"first key only", key + "\n<string>a</string>\n" + key + "\n" + value, id, false},
        {"key on the last line", value + "\n" + key + "\n", id, false}, {"no file", "", id, false},
        // clang-format on
    };
    for (const auto& c : cases) {
        ScratchDir app;
        if (!c.plist.empty()) Touch(app.path() / "Contents" / "Info.plist", c.plist);
        EXPECT_EQ(gChkBundleIdentifier(app.path(), c.wanted), c.found) << c.what;
    }
}

TEST(FileServices, OnlyFoldersHaveTypeAndCreator) {
    ScratchDir dir;
    Touch(dir.path() / "file.jpg");
    fs::create_directory_symlink(dir.path(), dir.path() / "link");
    for (const auto& [name, folder] :
         {std::pair{"", true}, {"link", true}, {"file.jpg", false}, {"missing", false}}) {
        const fs::path item = dir.path() / name;
        EXPECT_EQ(FolderItemEx::gGetCreator(item), folder ? "MACS" : "") << item;
        EXPECT_EQ(FolderItemEx::gGetType(item), folder ? "fold" : "") << item;
        EXPECT_EQ(gFileMatch(item, "macs", "FOLD"), folder) << item;
        EXPECT_FALSE(gFileMatch(item, "MACS", "")) << item;
    }
}

}  // namespace
}  // namespace lumivex
