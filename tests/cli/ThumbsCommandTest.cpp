// `lumivex thumbs`: the embedded bytes unchanged with --raw, re-encoded pictures without it,
// and never a file replaced or counted as written when one of that name is already there.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "CommandOutput.h"
#include "ReadBack.h"
#include "cli/ThumbsCommand.h"
#include "core/JpegCodec.h"
#include "exif/ExifReader.h"

namespace lumivex::test {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

// Re-encoded files are the pictures the program shows: turned by the thumbnail's orientation and
// encoded at the highest quality.
TEST(ThumbsCommand, WritesEachThumbnailOnceKeepsExistingFilesAndReportsFailedWrites) {
    fixtures::ScratchDir dir;
    const fs::path card = dir.path() / "card", raw = dir.path() / "raw", jpg = dir.path() / "jpg";
    fs::create_directories(card);
    const fixtures::Layout la =
        Camera(card / "a.JPG", [](auto& b) { b.JpegThumbnail(48, 32).Ifd1().Short(0x0112, {6}); });
    Camera(card / "b.JPG", [](auto& b) { b.StripThumbnail(8, 4); });
    fixtures::WriteCamera(card / "c.JPG", 0);
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
    const Bytes source = fixtures::ReadBytes(card / "a.JPG");
    EXPECT_EQ(
        fixtures::ReadBytes(raw / "a.JPG"),
        Bytes(source.begin() + la.thumbStart, source.begin() + la.thumbStart + la.thumbLength));
    EXPECT_EQ(fixtures::ReadBytes(raw / "b.tiff"), (Bytes{'m', 'i', 'n', 'e'}));

    // Re-encoded: one body.jpg a picture, into a folder the command makes.
    const Output e = RunCommand<ThumbsCommand>({card, "--verbose", "--out", jpg});
    EXPECT_EQ(e.status, 0);
    ExpectPieces(e.out, {"files 4, written 2, skipped 1,"});
    EXPECT_EQ(e.err, "skip: c.JPG: サムネイルがありません\n");
    EXPECT_EQ(JpegCodec::Decode(fixtures::ReadBytes(jpg / "b.jpg")).Width(), 8);
    ExifReader x;
    x.fitem = card / "a.JPG";
    x.Orientation = true;
    x.GetThumbNail();
    EXPECT_EQ(fixtures::ReadBytes(jpg / "a.jpg"), JpegCodec::Encode(x.Thumbnail, 100));
    EXPECT_EQ(RunCommand<ThumbsCommand>({"--raw", dir.path() / "none"}).status, 1);

    // Neither mode writes into the folder it reads, however the target names it.
    fs::create_directory_symlink(card, dir.path() / "link");
    for (const char* mode : {"--raw", "--verbose"}) {  // with and without --raw
        const Output same = RunCommand<ThumbsCommand>({mode, "--out", dir.path() / "link", card});
        EXPECT_EQ(same.status, 1) << mode;
        ExpectPieces(same.err, {"取り出し先が元のフォルダと同じです"});
        EXPECT_EQ(std::distance(fs::directory_iterator(card), {}), 4) << mode;
    }

    // A write that fails, for want of permission or of room, is reported with its reason and
    // fails the run, in either mode; nothing half written is left behind.
    fs::permissions(dir.path(), fs::perms::all);  // the unprivileged child walks in too
    const fs::path one = dir.path() / "one", locked = dir.path() / "locked";
    const fs::path full = dir.path() / "full";
    fs::create_directories(locked);
    fs::permissions(locked, fs::perms::owner_write | fs::perms::group_write,
                    fs::perm_options::remove);
    fixtures::WriteCameraFolder(one, {"a.JPG"}, 40, 30);
    const struct {
        std::vector<std::string> args;
        bool (*setup)();
        fs::path target;
        const char* err;
    } cases[] = {
        // clang-format off
        {{"--raw", "--out", locked, one}, Unprivileged, locked,
         "lumivex: a.JPG: a.JPG を書き込めません（アクセス権がありません）\n"},
        {{"--out", full, one}, TinyFileLimit, full,
         "lumivex: a.JPG: a.jpg を書き込めません（ファイルが大きすぎます）\n"},
        // clang-format on
    };
    for (const auto& c : cases) {
        const auto child = RunInChild<ThumbsCommand>(c.args, c.setup);
        if (!child) GTEST_SKIP() << "the condition cannot be made here";
        EXPECT_EQ(child->status, 1) << c.err;
        EXPECT_EQ(child->err, c.err);
        ExpectPieces(child->out, {"files 1, written 0, skipped 1,"});
        EXPECT_TRUE(fs::is_empty(c.target)) << c.target;
    }
}

}  // namespace
}  // namespace lumivex::test
