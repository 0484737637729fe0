// `lumivex scan`: one line an item in name order, the skips on request, and the cost; and what
// every command that reads a folder makes of one that cannot be read.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "CommandOutput.h"
#include "cli/ScanCommand.h"
#include "cli/ThumbsCommand.h"

namespace lumivex::test {
namespace {

namespace fs = std::filesystem;

// Any number of files in flight from 1 to 16 gives the same items in the same order; other
// counts are refused before anything is read.
TEST(ScanCommand, ItemsInNameOrderSkipsCostAndThreads) {
    fixtures::ScratchDir dir;
    fixtures::WriteCamera(dir.path() / "b.JPG", 40, 24);
    Camera(dir.path() / "a.jpg",
           [](auto& b) { b.JpegThumbnail(32, 24).Ifd1().Short(0x0112, {6}); });
    std::ofstream(dir.path() / "c.txt") << "x";
    const Output o = RunCommand<ScanCommand>({"--verbose", dir.path()});
    const std::string items = "a.jpg 24x32 1\nb.JPG 40x24 0\n";
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.out.substr(0, o.out.find("files")), items);
    ExpectPieces(o.out, {"files 3, items 2, bytes read "});
    EXPECT_EQ(o.err, "skip: c.txt: 画像ファイルの拡張子ではありません\n");
    EXPECT_EQ(RunCommand<ScanCommand>({dir.path()}).err, "");
    EXPECT_EQ(RunCommand<ScanCommand>({dir.path() / "none"}).status, 1);
    const struct {
        const char* threads;
        int status;
    } cases[] = {{"1", 0}, {"16", 0}, {"0", 2}, {"17", 2}, {"2x", 2}, {"", 2}};
    for (const auto& c : cases) {
        const Output t = RunCommand<ScanCommand>({"--threads", c.threads, dir.path()});
        EXPECT_EQ(t.status, c.status) << c.threads;
        EXPECT_EQ(t.out.substr(0, t.out.find("files")), c.status == 0 ? items : "") << c.threads;
    }
}

// Entries that cannot be read get one reason, the true one, from every command; a folder that
// cannot be listed is an error with its reason, never an empty folder.
TEST(ScanCommand, SkipReasonsAndUnreadableFoldersAgreeAcrossCommands) {
    fixtures::ScratchDir dir;
    const fs::path card = dir.path() / "card\x1b\xff";  // shown escaped, opened as it is
    fs::create_directories(card / "dir.jpg");
    fs::create_symlink(card / "none.jpg", card / "gone.jpg");
    ASSERT_EQ(::mkfifo((card / "pipe.jpg").c_str(), 0644), 0);
    std::ofstream(card / "plain.jpg") << "not a picture";
    const std::string skips =
        "skip: dir.jpg: フォルダです\n"
        "skip: gone.jpg: リンク先がありません\n"
        "skip: pipe.jpg: 通常のファイルではありません\n"
        "skip: plain.jpg: Exif情報がありません\n";
    const fs::path out = dir.path() / "out\x1b\xff";
    for (const Output& o :
         {RunCommand<ScanCommand>({"--verbose", card}),
          RunCommand<ThumbsCommand>({"--verbose", "--out", out, card}),
          RunCommand<ThumbsCommand>({"--raw", "--verbose", "--out", out, card})}) {
        EXPECT_EQ(o.status, 0);
        EXPECT_EQ(o.err, skips);
    }
    const Output gone = RunCommand<ScanCommand>({dir.path() / "gone"});
    EXPECT_EQ(gone.status, 1);
    EXPECT_EQ(gone.err,
              "lumivex: " + (dir.path() / "gone").string() + ": フォルダが見つかりません。\n");

    fs::permissions(dir.path(), fs::perms::all);  // the unprivileged child walks in too
    const fs::path locked = dir.path() / "locked";
    fs::create_directories(locked);
    std::ofstream(locked / "a.jpg") << "x";
    fs::permissions(locked, fs::perms::owner_exec);  // can be entered, not listed
    for (const auto& o :
         {RunInChild<ScanCommand>({locked}, Unprivileged),
          RunInChild<ThumbsCommand>({"--out", dir.path() / "new", locked}, Unprivileged),
          RunInChild<ThumbsCommand>({"--raw", "--out", dir.path() / "raw", locked},
                                    Unprivileged)}) {
        if (!o) GTEST_SKIP() << "cannot drop privileges here";
        EXPECT_EQ(o->status, 1);
        EXPECT_EQ(o->err, "lumivex: " + locked.string() +
                              ": フォルダを読み込めません（アクセス権がありません）。\n");
        EXPECT_EQ(o->out, "");
    }
    EXPECT_FALSE(fs::exists(dir.path() / "new"));  // nothing made for a run that cannot be
}

}  // namespace
}  // namespace lumivex::test
