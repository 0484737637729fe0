// How a file comes to count as having Exif, where the TIFF header is, and what a damaged
// file leaves behind.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;

ExifJpegBuilder Minimal(fixtures::ByteOrder order = fixtures::ByteOrder::Little) {
    ExifJpegBuilder b(order);
    b.Ifd0().Ascii(0x010F, "Maker");
    return b;
}

struct WalkCase {
    const char* name;
    std::function<void(ExifJpegBuilder&)> change;
    bool loads;
    std::uint64_t offset;
};

TEST(ContainerWalk, MarkersSignatureAndHeader) {
    const std::vector<std::uint8_t> app2 = {0xFF, 0xE2, 0x00, 0x04, 0x00, 0x00};
    const std::vector<std::uint8_t> comment = {0xFF, 0xFE, 0x00, 0x03, 'x'};
    const std::vector<std::uint8_t> secondApp0 = {0xFF, 0xE0, 0x00, 0x04, 0x00, 0x00};
    // clang-format off
    const WalkCase cases[] = {
        {"plain APP1", [](auto&) {}, true, 12},
        {"any start bytes", [](auto& b) { b.Soi({0x00, 0x42}); }, true, 12},
        {"APP0 of 16", [](auto& b) { b.App0(16); }, true, 30},
        {"APP0 of 20", [](auto& b) { b.App0(20); }, true, 34},
        {"two APP0", [&](auto& b) { b.App0(16).Prefix(secondApp0); }, false, 0},
        {"APP2 first", [&](auto& b) { b.Prefix(app2); }, false, 0},
        {"comment first", [&](auto& b) { b.Prefix(comment); }, false, 0},
        {"EXIF upper case", [](auto& b) { b.Signature("EXIF"); }, true, 12},
        {"exif lower case", [](auto& b) { b.Signature("exif"); }, true, 12},
        {"other signature", [](auto& b) { b.Signature("Exig"); }, false, 0},
        {"APP1 length 0", [](auto& b) { b.App1LengthOverride(0); }, true, 12},
        {"TIFF number 43", [](auto& b) { b.TiffMagic(43); }, true, 12},
        {"mark XX", [](auto& b) { b.ByteOrderMark({'X', 'X'}); }, false, 0},
        {"mark MM on little data", [](auto& b) { b.ByteOrderMark({'M', 'M'}); }, false, 0},
        {"IFD0 without entries", [](auto& b) { b.Ifd0().Remove(0x010F).Present(); }, false, 0},
        {"cut ahead of IFD0", [](auto& b) { b.TruncateAt(18); }, false, 0},
        {"cut in the header", [](auto& b) { b.TruncateAt(5); }, false, 0},
    };
    // clang-format on
    for (const auto& c : cases) {
        ExifJpegBuilder b = Minimal();
        c.change(b);
        Loaded l(b);
        EXPECT_EQ(l.x.ret, c.loads) << c.name;
        if (c.loads) {
            EXPECT_EQ(l.x.offset, c.offset) << c.name;
            EXPECT_EQ(l.x.IFD0_Offset, c.offset + 8) << c.name;
            EXPECT_EQ(l.x.IFD0.Find("Make") != nullptr, true) << c.name;
        } else {
            EXPECT_TRUE(l.x.IFD0.Empty()) << c.name;
        }
    }
}

TEST(ContainerWalk, DirectoriesPresentAbsentAndReused) {
    exifGPS x;
    ExifJpegBuilder withAll = Minimal(fixtures::ByteOrder::Big);
    withAll.Exif().Short(0x8822, {2});
    withAll.Gps().Ascii(0x0012, "WGS-84");
    withAll.JpegThumbnail(16, 8);
    auto bytesAll = withAll.Build();
    x.fbytes = bytesAll;
    x.GetExif();
    ASSERT_TRUE(x.ret);
    EXPECT_GT(x.IFDe_Offset, 0u);
    EXPECT_GT(x.IFDg_Offset, 0u);
    EXPECT_GT(x.IFD1_Offset, 0u);
    EXPECT_EQ(x.IFDg.Find("MapDatum") != nullptr, true);
    EXPECT_EQ(*x.IFD1.Integer("Compression"), 6);

    // The same object on a file without Exif, GPS or thumbnail directories forgets them.
    ExifJpegBuilder bare = Minimal();
    auto bytesBare = bare.Build();
    x.fbytes = bytesBare;
    x.GetExif();
    ASSERT_TRUE(x.ret);
    EXPECT_EQ(x.IFDe_Offset, 0u);
    EXPECT_EQ(x.IFDg_Offset, 0u);
    EXPECT_EQ(x.IFD1_Offset, 0u);
    EXPECT_TRUE(x.IFDe.Empty());
    EXPECT_TRUE(x.IFDg.Empty());
    EXPECT_TRUE(x.IFD1.Empty());
    EXPECT_EQ(x.IFDg_Max, 0u);

    // An Exif directory of no entries still loads.
    ExifJpegBuilder emptyExif = Minimal();
    emptyExif.Exif().Present();
    Loaded l(emptyExif);
    EXPECT_TRUE(l.x.ret);
    EXPECT_GT(l.x.IFDe_Offset, 0u);
    EXPECT_EQ(l.x.IFDe_Max, 0u);
    EXPECT_TRUE(l.x.IFDe.Empty());
}

TEST(ContainerWalk, DamagedFilesStayBounded) {
    // A cut inside IFD0 loads; the missing entries read as zeros and match no tag.
    ExifJpegBuilder cut = Minimal();
    cut.Ifd0().Short(0x0112, {6}).Ascii(0x0110, "Model-Name-Long");
    Loaded lc(cut);
    ExifJpegBuilder cutAt = cut;
    cutAt.TruncateAt(lc.layout.ifd0 + 2 + 12 + 6);
    Loaded l(cutAt);
    EXPECT_TRUE(l.x.ret);
    EXPECT_EQ(l.x.IFD0_Max, 3u);
    EXPECT_FALSE(l.x.IFD0.Has("Orientation"));

    // A count of 65535 entries on a tiny file keeps a table of what the file can hold.
    ExifJpegBuilder huge = Minimal();
    huge.Gps().Short(0x0005, {0}).CountField(0xFFFF);
    Loaded lh(huge);
    EXPECT_TRUE(lh.x.ret);
    EXPECT_EQ(lh.x.IFDg_Max, 0xFFFFu);
    EXPECT_LE(lh.x.IFDg_Dir.size(), lh.layout.fileSize / 12 + 1);
    // The zero entries past the end stand for GPS version 0, as a zero-filled read would.
    EXPECT_EQ(lh.x.IFDg.Find("VersionID") != nullptr, true);

    // Counts and pointers far past the end cost nothing and read as empty or zero.
    ExifJpegBuilder far = Minimal();
    far.Ifd0().RawValue(0x010E, 2, 0xFFFFFFFF, 0x7FFFFFF0);  // text far away
    far.Ifd0().RawValue(0x011A, 5, 1, 0xFFFFFFF0);           // rational past the end
    far.Exif().RawValue(0x9286, 7, 0xFFFFFFFF, 0);           // comment over the whole file
    Loaded lf(far);
    EXPECT_TRUE(lf.x.ret);
    EXPECT_EQ(lf.x.IFD0.Find("ImageDescription") != nullptr, true);
    EXPECT_EQ(std::get<std::string>(*lf.x.IFD0.Find("ImageDescription")), "");
    EXPECT_EQ(*lf.x.IFD0.Number("XResolutionA"), 0.0);
    EXPECT_TRUE(lf.x.IFDe.Has("UserComment"));

    // The IFD0 pointer of the header past the end: no entries, no Exif.
    ExifJpegBuilder lost = Minimal();
    lost.Ifd0Pointer(0xFFFFFF00);
    EXPECT_FALSE(Loaded(lost).x.ret);
}

class TempDir {
  public:
    TempDir() {
        path_ =
            std::filesystem::temp_directory_path() / ("lumivex-walk-" + std::to_string(::getpid()));
        std::filesystem::create_directories(path_);
    }
    ~TempDir() { std::filesystem::remove_all(path_); }
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

TEST(ContainerWalk, FilesThatCannotBeRead) {
    TempDir dir;
    const auto tiff = dir.path() / "plain.tif";
    {
        std::ofstream f(tiff, std::ios::binary);
        f << "II*\0\x08\0\0\0" << std::string(64, '\0');
    }
    const auto empty = dir.path() / "empty.jpg";
    std::ofstream(empty).close();
    const auto fifo = dir.path() / "pipe.jpg";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const auto good = dir.path() / "good.JPG";
    Minimal().Write(good);

    exifGPS x;
    for (const auto& p : {tiff, empty, fifo, dir.path() / "missing.jpg", dir.path()}) {
        x.fitem = p;
        x.GetExif();  // a FIFO must not block and a folder must not open
        EXPECT_FALSE(x.ret) << p;
    }
    x.fitem = good;
    x.GetExif();
    EXPECT_TRUE(x.ret);
}

// A file is read in stretches: a first read, the head grown once, pages and blocks beyond.
// Whatever comes out must be what the same bytes give from memory, wherever the values lie.
TEST(ContainerWalk, FileReadsMatchMemoryWhereverValuesLie) {
    TempDir dir;
    struct Case {
        std::size_t text;                // a description this long pushes everything after it along
        std::optional<std::size_t> cut;  // inside the thumbnail
    };
    const Case cases[] = {{0, {}},        {16000, {}},   {16300, {}},  {30000, {}},
                          {60000, {}},    {70000, {}},   {200000, {}}, {16300, 17000},
                          {30000, 32000}, {60000, 62000}};
    int n = 0;
    for (const Case& c : cases) {
        for (const auto order : BothOrders()) {
            ExifJpegBuilder b(order);
            b.Ifd0().Ascii(0x010E, std::string(c.text, 'd')).Ascii(0x010F, "Maker");
            b.Exif().Ascii(0x9003, "2024:01:02 03:04:05");
            b.Gps().Ascii(0x0001, "N");
            b.JpegThumbnail(160, 120).MainImage(300000);
            if (c.cut) b.TruncateAt(*c.cut);
            const auto file = dir.path() / ("f" + std::to_string(n++) + ".jpg");
            b.Write(file);

            exifGPS fromFile, fromMemory;
            fromFile.fitem = file;
            const std::vector<std::uint8_t> bytes = b.Build();
            fromMemory.fbytes = bytes;
            const std::string what = std::to_string(c.text) + (c.cut ? " cut" : "");
            std::string f[6], m[6];
            fromFile.GetExif();
            fromMemory.GetExif();
            ASSERT_EQ(fromFile.ret, fromMemory.ret) << what;
            fromFile.GetInfo(f[0], f[1], f[2], f[3], f[4], f[5]);
            fromMemory.GetInfo(m[0], m[1], m[2], m[3], m[4], m[5]);
            for (int k = 0; k < 6; ++k)
                EXPECT_EQ(f[k], m[k]) << what << " GetInfo" << k + 1;

            fromFile.GetThumbNail();
            fromMemory.GetThumbNail();
            EXPECT_TRUE(fromFile.ret || c.cut) << what;
            EXPECT_EQ(fromFile.ret, fromMemory.ret) << what;
            EXPECT_EQ(fromFile.Thumbnail, fromMemory.Thumbnail) << what;
        }
    }
}

}  // namespace
}  // namespace lumivex::test
