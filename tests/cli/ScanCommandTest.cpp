// `lumivex scan`: one line an item in name order, the skips on request, and the cost.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CommandOutput.h"
#include "ExifJpegBuilder.h"
#include "cli/ScanCommand.h"

namespace lumivex::test {
namespace {

TEST(ScanCommand, ItemsInNameOrderSkipsAndCost) {
    fixtures::ScratchDir dir;
    for (const auto& [name, width, turn] : {std::tuple{"b.JPG", 40, 1}, {"a.jpg", 32, 6}}) {
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        b.JpegThumbnail(width, 24).Ifd1().Short(0x0112, {static_cast<std::uint16_t>(turn)});
        b.Write(dir.path() / name);
    }
    std::ofstream(dir.path() / "c.txt") << "x";
    const Output o = RunCommand<ScanCommand>({"--verbose", dir.path()});
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.out.substr(0, o.out.find("files")), "a.jpg 24x32 1\nb.JPG 40x24 0\n");
    ExpectPieces(o.out, {"files 3, items 2, bytes read "});
    EXPECT_EQ(o.err, "skip: c.txt: 画像ファイルの拡張子ではありません\n");
    EXPECT_EQ(RunCommand<ScanCommand>({dir.path()}).err, "");
    EXPECT_EQ(RunCommand<ScanCommand>({dir.path() / "none"}).status, 1);
}

}  // namespace
}  // namespace lumivex::test
