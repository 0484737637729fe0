// `lumivex thumbs`: the embedded bytes unchanged with --raw, re-encoded pictures without it,
// and never a file replaced or counted as written when one of that name is already there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "CommandOutput.h"
#include "ExifJpegBuilder.h"
#include "cli/ThumbsCommand.h"
#include "core/JpegCodec.h"

namespace lumivex::test {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

Bytes ReadBytes(const fs::path& p) {
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

TEST(ThumbsCommand, WritesEachThumbnailOnceAndKeepsExistingFiles) {
    fixtures::ScratchDir dir;
    const fs::path card = dir.path() / "card", raw = dir.path() / "raw", jpg = dir.path() / "jpg";
    fs::create_directories(card);
    fixtures::ExifJpegBuilder a, b, c;
    a.Ifd0().Ascii(0x010F, "M");
    b.Ifd0().Ascii(0x010F, "M");
    c.Ifd0().Ascii(0x010F, "M");
    const fixtures::Layout la = a.JpegThumbnail(40, 30).Write(card / "a.JPG");
    const fixtures::Layout lb = b.StripThumbnail(8, 4).Write(card / "b.JPG");
    c.Write(card / "c.JPG");
    std::ofstream(card / "notes.txt") << "x";
    fs::create_directories(raw);
    std::ofstream(raw / "b.tiff") << "mine";

    const Output o = RunCommand<ThumbsCommand>({"--raw", "--verbose", "--out", raw, card});
    EXPECT_EQ(o.status, 0);
    ExpectPieces(o.out, {"files 4, written 1, skipped 3,"});
    EXPECT_EQ(o.err,
              "skip: b.JPG: 同じ名前のファイルがあります\n"
              "skip: c.JPG: サムネイルがありません\n"
              "skip: notes.txt: 画像ファイルの拡張子ではありません\n");
    const Bytes source = ReadBytes(card / "a.JPG");
    EXPECT_EQ(ReadBytes(raw / "a.JPG"), Bytes(source.begin() + la.thumbStart,
                                              source.begin() + la.thumbStart + la.thumbLength));
    EXPECT_EQ(ReadBytes(raw / "b.tiff"), (Bytes{'m', 'i', 'n', 'e'}));
    EXPECT_GT(lb.thumbLength, 0u);

    // Re-encoded: one body.jpg a picture, into a folder the command makes.
    const Output e = RunCommand<ThumbsCommand>({card, "--out", jpg});
    EXPECT_EQ(e.status, 0);
    ExpectPieces(e.out, {"files 4, written 2, skipped 1,"});
    EXPECT_EQ(JpegCodec::Decode(ReadBytes(jpg / "a.jpg")).Width(), 40);
    EXPECT_EQ(JpegCodec::Decode(ReadBytes(jpg / "b.jpg")).Width(), 8);

    EXPECT_EQ(RunCommand<ThumbsCommand>({"--raw", dir.path() / "none"}).status, 1);
}

// A write that fails, for want of permission or of room, is reported with its reason and fails
// the run, in either mode; nothing half written is left behind.
TEST(ThumbsCommand, FailedWritesAreReportedAndFailTheRun) {
    fixtures::ScratchDir dir;
    fs::permissions(dir.path(), fs::perms::all);  // the unprivileged child walks in too
    const fs::path card = dir.path() / "card", locked = dir.path() / "locked";
    const fs::path full = dir.path() / "full";
    fs::create_directories(card);
    fs::create_directories(locked);
    fs::permissions(locked, fs::perms::owner_write | fs::perms::group_write,
                    fs::perm_options::remove);
    fixtures::ExifJpegBuilder a;
    a.Ifd0().Ascii(0x010F, "M");
    a.JpegThumbnail(40, 30).Write(card / "a.JPG");
    const struct {
        std::vector<std::string> args;
        bool (*setup)();
        fs::path target;
        const char* err;
    } cases[] = {
        {{"--raw", "--out", locked, card},
         Unprivileged,
         locked,
         "lumivex: a.JPG: a.JPG を書き込めません（アクセス権がありません）\n"},
        {{"--out", full, card},
         TinyFileLimit,
         full,
         "lumivex: a.JPG: a.jpg を書き込めません（ファイルが大きすぎます）\n"},
    };
    for (const auto& c : cases) {
        const auto o = RunInChild<ThumbsCommand>(c.args, c.setup);
        if (!o) GTEST_SKIP() << "the condition cannot be made here";
        EXPECT_EQ(o->status, 1) << c.err;
        EXPECT_EQ(o->err, c.err);
        ExpectPieces(o->out, {"files 1, written 0, skipped 1,"});
        EXPECT_TRUE(fs::is_empty(c.target)) << c.target;
    }
}

// Neither mode writes into the folder it reads, however the target names it.
TEST(ThumbsCommand, NeverWritesIntoTheSourceFolder) {
    fixtures::ScratchDir dir;
    const fs::path card = dir.path() / "card", link = dir.path() / "link";
    fs::create_directories(card);
    fs::create_directory_symlink(card, link);
    fixtures::ExifJpegBuilder b;
    b.Ifd0().Ascii(0x010F, "M");
    b.StripThumbnail(8, 4).Write(card / "b.JPG");  // --raw would write b.tiff
    for (const auto& args : {std::vector<std::string>{"--raw", "--out", link, card},
                             std::vector<std::string>{"--out", link, card}}) {
        const Output o = RunCommand<ThumbsCommand>(args);
        EXPECT_EQ(o.status, 1) << args[0];
        ExpectPieces(o.err, {"取り出し先が元のフォルダと同じです"});
        EXPECT_EQ(std::distance(fs::directory_iterator(card), {}), 1) << args[0];
    }
}

}  // namespace
}  // namespace lumivex::test
