// Inputs that the fuzzer found or that were crafted to break the reader's bounds, each run
// through the fuzz target itself and then checked for what it must give.
#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;

struct FuzzRun {
    std::size_t size = 0;
    ExifReader tags;  // after GetExif
    bool thumbRet = false, placeholderRet = false, saveRet = false;
    Picture placeholder;
    // The size of the block the export was asked for, and of the embedded block.
    std::optional<std::size_t> exported, embedded;
};

void RunLikeFuzzer(const Bytes& bytes, FuzzRun& r) {
    r.size = bytes.size();
    r.tags.fbytes = bytes;
    r.tags.GetExif();
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());  // the bounds every input must keep
    ExifReader x;
    x.fbytes = bytes;
    x.GetThumbNail();
    r.thumbRet = x.ret;
    x.Orientation = x.NoThumb = true;
    x.GetThumbNail();
    r.placeholderRet = x.ret;
    r.placeholder = x.Thumbnail;
    x.SaveThumbNail([&](const ThumbnailBlock& block) -> std::optional<std::filesystem::path> {
        r.exported = block.bytes.size();
        return std::nullopt;
    });
    r.saveRet = x.ret;
    if (const auto block = x.ReadThumbnailBlock()) r.embedded = block->bytes.size();
}

std::string Text(const ExifDict& d, const char* key) {
    const ExifValue* v = d.Find(key);
    return v && std::holds_alternative<std::string>(*v) ? std::get<std::string>(*v) : "<none>";
}

TEST(FuzzRegression, CraftedAndFoundInputs) {
    using namespace fixtures;  // field types
    const auto II = ByteOrder::Little, MM = ByteOrder::Big;
    struct Case {
        const char* name;
        ByteOrder order;
        std::function<void(ExifJpegBuilder&)> change;  // of a small IFD0 holding Make and Model
        std::function<void(const FuzzRun&)> expect;
    };
    // clang-format off
    const Case cases[] = {
        // A directory count of 65535 over two real entries: the table must not grow past the
        // bytes the file holds (checked for every case), and the real entries still count.
        {"IFD0 claims 65535 entries", MM, [](auto& b) { b.Ifd0().CountField(0xFFFF); },
         [](const FuzzRun& r) { EXPECT_EQ(r.tags.IFD0_Max, 0xFFFFU); EXPECT_EQ(Text(r.tags.IFD0, "Make"), "Seed"); }},
        // A text of 4 Gi characters starting at IFD0: it ends with the file.
        {"text count 0xFFFFFFFF", II, [](auto& b) { b.Ifd0().RawValue(0x010E, ASCII, 0xFFFFFFFF, 8); },
         [](const FuzzRun& r) { const auto t = Text(r.tags.IFD0, "ImageDescription"); EXPECT_LE(t.size(), r.size); EXPECT_NE(t, "<none>"); }},
        // A user comment of 4 Gi bytes: the body ends with the file.
        {"comment count 0xFFFFFFFF", II, [](auto& b) { b.Exif().RawValue(0x9286, UNDEFINED, 0xFFFFFFFF, 8); },
         [](const FuzzRun& r) { EXPECT_LE(Text(r.tags.IFDe, "UserComment").size(), r.size); }},
        // The cap on a thumbnail block is 16 MiB to the byte: at it the whole block is offered,
        // one byte past it nothing is, and the export fails.
        {"JPEG length of 16 MiB", II, [](auto& b) { b.JpegThumbnail(16, 8).MainImage(17 << 20).Ifd1().SetLong(0x0202, 16 << 20); },
         [](const FuzzRun& r) { EXPECT_EQ(r.exported, std::optional<std::size_t>(16 << 20)); }},
        {"JPEG length of 16 MiB + 1", II, [](auto& b) { b.JpegThumbnail(16, 8).MainImage(17 << 20).Ifd1().SetLong(0x0202, (16 << 20) + 1); },
         [](const FuzzRun& r) { EXPECT_FALSE(r.exported || r.embedded || r.thumbRet || r.saveRet); }},
        // Strips of 30000 x 30000 whose size matches the stated count: 2.7 GB never allocated.
        {"strips of 30000 x 30000", II,
         [](auto& b) { b.StripThumbnail(8, 4).Ifd1().SetLong(0x0100, 30000).SetLong(0x0101, 30000).SetLong(0x0117, 2700000000U); },
         [](const FuzzRun& r) { EXPECT_FALSE(r.thumbRet || r.exported); }},
        // Found by the fuzzer (two faults, both seen by the sanitizers): an empty strip block
        // was copied through the null buffer of an empty vector, and its width of 2^31, which
        // 2^31 x 0 x 3 = 0 lets through the size test, was converted to an int.
        {"empty strips of width 2^31", MM,
         [](auto& b) { b.StripThumbnail(8, 4).Ifd1().SetLong(0x0100, 0x80000000U).SetLong(0x0101, 0).SetLong(0x0117, 0); },
         [](const FuzzRun& r) { EXPECT_FALSE(r.thumbRet); EXPECT_EQ(r.placeholder.Width(), 160); EXPECT_EQ(r.exported, std::optional<std::size_t>(0)); }},
        // Directory and value pointers far past the end read as nothing, not as a failure.
        {"pointers past the end", II,
         [](auto& b) { b.NextIfdAfterIfd0(0xFFFFFF00).Ifd0().RawValue(0x8769, LONG, 1, 0xFFFFFFF0).RawValue(0x8825, LONG, 1, 0x7FFFFFF0).RawValue(0x011A, RATIONAL, 1, 0xFFFFFFF8); },
         [](const FuzzRun& r) { EXPECT_TRUE(r.tags.IFDe_Dir.empty() && r.tags.IFDg.Empty() && r.tags.IFD1.Empty()); EXPECT_EQ(r.tags.IFD0.Number("XResolutionA"), 0.0); }},
        // IFD1, the Exif and the GPS directory all pointing back at IFD0.
        {"directories pointing at IFD0", II,
         [](auto& b) { b.NextIfdAfterIfd0(8).Ifd0().RawValue(0x8769, LONG, 1, 8).RawValue(0x8825, LONG, 1, 8); },
         [](const FuzzRun& r) { EXPECT_EQ(Text(r.tags.IFD1, "Make"), "Seed"); EXPECT_EQ(r.tags.IFDe_Dir.size(), r.tags.IFD0_Dir.size()); EXPECT_FALSE(r.thumbRet); }},
        // A cut inside IFD0: the missing entries read as zeros and match no tag.
        {"IFD0 cut in its second entry", II, [](auto& b) { b.Ifd0().Short(0x0112, {6}); b.TruncateAt(Loaded(b).layout.ifd0 + 2 + 12 + 6); },
         [](const FuzzRun& r) { EXPECT_EQ(r.tags.IFD0_Max, 3u); EXPECT_FALSE(r.tags.IFD0.Has("Orientation")); }},
        // A GPS directory cut in its tenth entry: what was read stays, nothing more is made up.
        {"GPS cut short", MM,
         [](auto& b) {
             b.Gps().Ascii(0x0001, "N").Rational(0x0002, {{35, 1}, {39, 1}, {2940, 100}});
             for (std::uint16_t tag = 8; tag < 20; ++tag) b.Gps().Short(tag, {1});
             b.TruncateAt(Loaded(b).layout.gps + 2 + 12 * 9 + 5);
         },
         [](const FuzzRun& r) { EXPECT_EQ(Text(r.tags.IFDg, "LatitudeRef"), "N"); EXPECT_EQ(r.tags.IFDg.Number("Latitude1B"), 0.0); }},  // its data was cut off
    };
    // clang-format on
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ExifJpegBuilder b = WithMake(c.order, "Seed");
        b.Ifd0().Ascii(0x0110, "S-1");
        c.change(b);
        const Bytes bytes = b.Build();
        FuzzRun r;
        RunLikeFuzzer(bytes, r);
        ASSERT_TRUE(r.tags.ret);
        c.expect(r);
    }
}

// Found by the fuzzer, comparing a file with its bytes in memory: this damaged thumbnail
// (5920 x 1, a broken Huffman table, cut short) decodes with a mere warning yet leaves pixels
// unwritten, so a buffer that was not zeroed showed whatever memory held before. Whatever the
// heap held, the picture must come out the same.
TEST(FuzzRegression, DamagedThumbnailShowsNoStaleMemory) {
    // clang-format off
    const char* const kStream =
        "ffd8ffe000104a46494600010100000100010000ffdb0043000503040404030504040405050506070c080707"
        "07070f0b0b090c110f1212110f111113161c1713141a1511111821181a1d1d1f1f1f13172224221e241c1e1f"
        "1effdb0043010505050706070e08080e1e1411141e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e"
        "1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1e1effc000110800011720030122000211010311"
        "01ffc4001f0000010501010101010100000000000000000102030405ffd8ffe1060708090a0bffc400b51000"
        "02010303020403050504040000017d01020300041105122131410613516107227114328191a1082342b1c115"
        "52d1f0243362728287090a161718191a25262728292a3435363738393a434445464748494a53545556575825"
        "f11718191a262728292a35363738393a43444546c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4"
        "c4c4c4c4c4c4c4c4c4c4c4c4c4c4c4c44748494a535455565758595a636465666768696a737475767778797a"
        "82838485868788898a92939495969798999aa2a3a4a5a6a7a8a9aab2b3b4b5b6b7b8b9bac2c3c4c5c6c7c8c9"
        "cad2d3d4d5d6d7d8d9dae2e3e4e5e6e7e8e9eaf2f3f4f5f6f7f8f9faffda000c03010002110311003f00f3da"
        "2b1ffb73fe9d7ff227ff005a8fedcffa75ff00c89ffd6acffd42cfff00e81fff002687ff00247ed5febd643f"
        "f3ff00ff00259fff00227afd15ea7ff0a87fea61ff00c92ffece8ff8543ff530feffffffff00675f0dfd8b8d"
        "fe4fc57f99fc7ffead667ff3ebf18ff99f1a514515fd907dc1fa3d451457f3a1ef1fffd9";
    // clang-format on
    Bytes jpeg;
    for (const char* p = kStream; p[0] != '\0' && p[1] != '\0'; p += 2)
        jpeg.push_back(static_cast<std::uint8_t>(std::stoi(std::string(p, 2), nullptr, 16)));
    ExifJpegBuilder b = WithMake(fixtures::ByteOrder::Big, "Seed");
    b.Ifd0().Ascii(0x0110, "S-1").Short(0x0112, {3});
    const Bytes bytes = b.JpegThumbnailBytes(jpeg).Build();

    std::optional<Picture> first;
    for (const std::uint8_t junk : {0xAA, 0x55, 0x00}) {
        // Freed memory of the thumbnail's size, filled with junk, for the decoder to be given.
        { Bytes stale(5920 * 3, junk); }
        ExifReader x;
        x.fbytes = bytes;
        x.GetThumbNail();
        ASSERT_TRUE(x.ret);
        ASSERT_EQ(x.Thumbnail.Width(), 5920);
        if (!first) first = x.Thumbnail;
        EXPECT_EQ(x.Thumbnail, *first) << "junk " << int{junk};
    }
}

}  // namespace
}  // namespace lumivex::test
