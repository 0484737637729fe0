// How a file comes to count as having Exif, where the TIFF header is, and what a damaged
// file leaves behind.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "ExifTestSupport.h"
#include "ScratchDir.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;

TEST(ContainerWalk, MarkersSignatureAndHeader) {
    // clang-format off
    struct {
        const char* name;
        std::function<void(ExifJpegBuilder&)> change;
        bool loads;
        std::uint64_t offset;  // of the TIFF header
    } const cases[] = {
        {"plain APP1", [](auto&) {}, true, 12},
        {"any start bytes", [](auto& b) { b.Soi({0x00, 0x42}); }, true, 12},
        {"APP0 of 16", [](auto& b) { b.App0(16); }, true, 30},
        {"APP0 of 20", [](auto& b) { b.App0(20); }, true, 34},
        {"two APP0", [](auto& b) { b.App0(16).Prefix({0xFF, 0xE0, 0, 4, 0, 0}); }, false, 0},
        {"APP2 first", [](auto& b) { b.Prefix({0xFF, 0xE2, 0, 4, 0, 0}); }, false, 0},
        {"comment first", [](auto& b) { b.Prefix({0xFF, 0xFE, 0, 3, 'x'}); }, false, 0},
        {"EXIF upper case", [](auto& b) { b.Signature("EXIF"); }, true, 12},
        {"other signature", [](auto& b) { b.Signature("Exig"); }, false, 0},
        {"APP1 length 0", [](auto& b) { b.App1LengthOverride(0); }, true, 12},
        {"TIFF number 43", [](auto& b) { b.TiffMagic(43); }, true, 12},
        {"mark XX", [](auto& b) { b.ByteOrderMark({'X', 'X'}); }, false, 0},
        {"mark MM on little data", [](auto& b) { b.ByteOrderMark({'M', 'M'}); }, false, 0},
        {"IFD0 without entries", [](auto& b) { b.Ifd0().Remove(0x010F).Present(); }, false, 0},
        {"cut ahead of IFD0", [](auto& b) { b.TruncateAt(18); }, false, 0},
        {"cut in the header", [](auto& b) { b.TruncateAt(5); }, false, 0},
        {"IFD0 past the end", [](auto& b) { b.Ifd0Pointer(0xFFFFFF00); }, false, 0},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ExifJpegBuilder b = WithMake();
        c.change(b);
        Loaded l(b);
        EXPECT_EQ(l.x.ret, c.loads);
        EXPECT_EQ(l.x.IFD0.Has("Make"), c.loads);
        if (!c.loads) continue;
        EXPECT_EQ(l.x.offset, c.offset);
        EXPECT_EQ(l.x.IFD0_Offset, c.offset + 8);
    }
}

TEST(ContainerWalk, DirectoriesPresentAbsentAndReused) {
    ExifJpegBuilder withAll = WithMake(fixtures::ByteOrder::Big);
    withAll.Exif().Short(0x8822, {2});
    withAll.Gps().Ascii(0x0012, "WGS-84");
    withAll.JpegThumbnail(16, 8);
    const Bytes bytesAll = withAll.Build(), bytesBare = WithMake().Build();
    ExifReader x;
    x.fbytes = bytesAll;
    x.GetExif();
    EXPECT_TRUE(x.IFDe_Offset > 0 && x.IFDg_Offset > 0 && x.IFD1_Offset > 0);
    EXPECT_TRUE(x.IFDg.Has("MapDatum"));
    EXPECT_EQ(*x.IFD1.Integer("Compression"), 6);
    // The same object on a file without Exif, GPS or thumbnail directories forgets them.
    x.fbytes = bytesBare;
    x.GetExif();
    ASSERT_TRUE(x.ret);
    EXPECT_EQ(x.IFDe_Offset + x.IFDg_Offset + x.IFD1_Offset + x.IFDg_Max, 0u);
    EXPECT_TRUE(x.IFDe.Empty() && x.IFDg.Empty() && x.IFD1.Empty());

    // An Exif directory of no entries still loads.
    ExifJpegBuilder emptyExif = WithMake();
    emptyExif.Exif().Present();
    Loaded l(emptyExif);
    EXPECT_TRUE(l.x.ret);
    EXPECT_GT(l.x.IFDe_Offset, 0u);
    EXPECT_TRUE(l.x.IFDe.Empty());
}

TEST(ContainerWalk, FilesThatCannotBeRead) {
    fixtures::ScratchDir dir("lvx-walk");
    const auto tiff = dir.path() / "plain.tif", empty = dir.path() / "empty.jpg";
    const auto fifo = dir.path() / "pipe.jpg", good = dir.path() / "good.JPG";
    std::ofstream(tiff, std::ios::binary) << "II*\0\x08\0\0\0" << std::string(64, '\0');
    std::ofstream(empty).close();
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    WithMake().Write(good);
    ExifReader x;
    for (const auto& p : {tiff, empty, fifo, dir.path() / "missing.jpg", dir.path(), good}) {
        x.fitem = p;
        x.GetExif();  // a FIFO must not block and a folder must not open
        EXPECT_EQ(x.ret, p == good) << p;
    }
}

// A file is read in stretches: a first read, the head grown once, pages and blocks beyond.
// Whatever comes out must be what the same bytes give from memory, wherever the values lie.
TEST(ContainerWalk, FileReadsMatchMemoryWhereverValuesLie) {
    struct Case {
        std::size_t text;                // a description this long pushes everything after it along
        std::optional<std::size_t> cut;  // inside the thumbnail
    };
    const Case cases[] = {{0, {}},        {16000, {}},   {16300, {}},  {30000, {}},
                          {60000, {}},    {70000, {}},   {200000, {}}, {16300, 17000},
                          {30000, 32000}, {60000, 62000}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.text) + (c.cut ? " cut" : ""));
        ExifJpegBuilder b(fixtures::ByteOrder::Big);
        b.Ifd0().Ascii(0x010E, std::string(c.text, 'd')).Ascii(0x010F, "Maker");
        b.Exif().Ascii(0x9003, "2024:01:02 03:04:05");
        b.Gps().Ascii(0x0001, "N");
        b.JpegThumbnail(160, 120).MainImage(300000);
        if (c.cut) b.TruncateAt(*c.cut);
        const Bytes bytes = b.Build();
        // Where the values lie does not hang on the byte order; the target compares the file
        // with its bytes in memory.
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        ExifReader x;
        x.fbytes = bytes;
        x.GetThumbNail();
        EXPECT_TRUE(x.ret || c.cut);
    }
}

}  // namespace
}  // namespace lumivex::test
