// IFD0, IFD1 and Exif directory entries as stored values, in both byte orders.
#include <gtest/gtest.h>

#include <functional>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using fixtures::ExifJpegBuilder;
using fixtures::Ifd;
using namespace fixtures;  // field type names

enum class Dir { Ifd0, Ifd1, Exif };

struct ValueCase {
    const char* name;
    Dir dir;
    std::function<void(Ifd&)> add;
    std::vector<std::pair<std::string, ExifValue>> expect;  // key and exact stored value
    std::vector<std::string> absent;
};

const ExifDict& DictOf(const exifGPS& x, Dir d) {
    return d == Dir::Ifd0 ? x.IFD0 : d == Dir::Ifd1 ? x.IFD1 : x.IFDe;
}

const std::vector<ValueCase>& Cases() {
    // clang-format off
    static const std::vector<ValueCase> cases = {
        {"orientation", Dir::Ifd0, [](Ifd& d) { d.Short(0x0112, {6}); }, {{"Orientation", I(6)}}, {}},
        {"width SHORT", Dir::Ifd0, [](Ifd& d) { d.Short(0x0100, {160}); }, {{"ImageWidth", I(160)}}, {}},
        {"width LONG", Dir::Ifd0, [](Ifd& d) { d.Long(0x0100, {160}); }, {{"ImageWidth", D(160)}}, {}},
        {"width RATIONAL", Dir::Ifd0, [](Ifd& d) { d.Rational(0x0100, {{160, 1}}); }, {}, {"ImageWidth"}},
        {"make", Dir::Ifd0, [](Ifd& d) { d.Ascii(0x010F, "ABCDE"); }, {{"Make", S("ABCDE")}}, {}},
        {"short text", Dir::Ifd0, [](Ifd& d) { d.Ascii(0x0110, "12"); }, {{"Model", S("12")}}, {}},
        {"zeros inside text", Dir::Ifd0, [](Ifd& d) { d.Bytes(0x0131, ASCII, {'A', 0, 'B', 0, 0}); }, {{"Software", S("AB")}}, {}},
        {"resolution", Dir::Ifd0, [](Ifd& d) { d.Rational(0x011A, {{300, 1}}); }, {{"XResolutionA", D(300)}, {"XResolutionB", D(1)}}, {}},
        {"zero denominator", Dir::Ifd0, [](Ifd& d) { d.Rational(0x011B, {{72, 0}}); }, {{"YResolutionA", D(72)}, {"YResolutionB", D(0)}}, {}},
        {"bits per sample", Dir::Ifd0, [](Ifd& d) { d.Short(0x0102, {8, 10, 12}); }, {{"BitsPerSample1", D(8)}, {"BitsPerSample2", D(10)}, {"BitsPerSample3", D(12)}}, {}},
        {"marks", Dir::Ifd0, [](Ifd& d) { d.Ascii(0x8298, "(c) me").Short(0x0211, {1, 2, 3}).Long(0x0111, {99}); }, {{"Copyright", I(0)}, {"YCbCrCoefficients", I(0)}, {"StripOffsets", I(0)}}, {}},
        {"thumbnail pointer", Dir::Ifd1, [](Ifd& d) { d.Long(0x0201, {5000}).Long(0x0202, {77}); }, {{"JPEGInterchangeFormat", D(5000)}, {"JPEGInterchangeFormatLength", D(77)}}, {}},
        {"strips LONG", Dir::Ifd1, [](Ifd& d) { d.Long(0x0111, {70000}).Long(0x0117, {57600}); }, {{"StripOffsets", D(70000)}, {"StripByteCounts", D(57600)}}, {}},
        {"strips SHORT", Dir::Ifd1, [](Ifd& d) { d.Short(0x0111, {700, 900}); }, {{"StripOffsets", I(700)}}, {}},
        {"IFD1 skips tables", Dir::Ifd1, [](Ifd& d) { d.Ascii(0x8298, "c").Short(0x0102, {8, 8, 8}).Ascii(0x010F, "M1"); }, {{"Make", S("M1")}}, {"Copyright", "BitsPerSample1"}},
        {"negative bias", Dir::Exif, [](Ifd& d) { d.SRational(0x9204, {{-1, 3}}); }, {{"ExposureBiasValueA", D(4294967295.0)}, {"ExposureBiasValueB", D(3)}}, {}},
        {"negative in low bytes only", Dir::Exif, [](Ifd& d) { d.SRational(0x9201, {{0x12FFFFFF, 0x00000001}}); }, {{"ShutterSpeedValueA", D(4294967295.0)}, {"ShutterSpeedValueB", D(1)}}, {}},
        {"exposure", Dir::Exif, [](Ifd& d) { d.Rational(0x829A, {{1, 250}}).Rational(0x829D, {{28, 10}}); }, {{"ExposureTimeA", D(1)}, {"ExposureTimeB", D(250)}, {"FNumberA", D(28)}, {"FNumberB", D(10)}}, {}},
        {"ISO single", Dir::Exif, [](Ifd& d) { d.Short(0x8827, {400}); }, {{"ISOSpeedRatings", I(400)}}, {}},
        {"ISO list", Dir::Exif, [](Ifd& d) { d.Short(0x8827, {400, 800}); }, {{"ISOSpeedRatingsM", I(400)}}, {"ISOSpeedRatings"}},
        {"subject area 2", Dir::Exif, [](Ifd& d) { d.Short(0x9214, {10, 20}); }, {{"SubjectAreaX", I(10)}, {"SubjectAreaY", I(20)}}, {"SubjectAreaD"}},
        {"subject area 3", Dir::Exif, [](Ifd& d) { d.Short(0x9214, {10, 20, 30}); }, {{"SubjectAreaX", D(10)}, {"SubjectAreaY", D(20)}, {"SubjectAreaD", D(30)}}, {"SubjectAreaW"}},
        {"subject area 4", Dir::Exif, [](Ifd& d) { d.Short(0x9214, {10, 20, 30, 40}); }, {{"SubjectAreaX", D(10)}, {"SubjectAreaW", D(30)}, {"SubjectAreaH", D(40)}}, {"SubjectAreaD"}},
        {"subject area 5", Dir::Exif, [](Ifd& d) { d.Short(0x9214, {1, 2, 3, 4, 5}); }, {}, {"SubjectAreaX"}},
        {"subject location", Dir::Exif, [](Ifd& d) { d.Short(0xA214, {1200, 800}); }, {{"SubjectLocationX", I(1200)}, {"SubjectLocationY", I(800)}}, {}},
        {"pixels LONG", Dir::Exif, [](Ifd& d) { d.Long(0xA002, {4000}).Short(0xA003, {3000}); }, {{"PixelXDimension", D(4000)}, {"PixelYDimension", I(3000)}}, {}},
        {"pixels RATIONAL", Dir::Exif, [](Ifd& d) { d.Rational(0xA002, {{4000, 1}}); }, {}, {"PixelXDimension"}},
        {"flash 0x59", Dir::Exif, [](Ifd& d) { d.Short(0x9209, {0x59}); }, {{"Flash", I(0x59)}}, {}},
        {"flash 0xD9", Dir::Exif, [](Ifd& d) { d.Short(0x9209, {0xD9}); }, {{"Flash", I(0x59)}}, {}},
        {"flash high byte", Dir::Exif, [](Ifd& d) { d.Short(0x9209, {0x0159}); }, {{"Flash", I(0x59)}}, {}},
        {"file source", Dir::Exif, [](Ifd& d) { d.Bytes(0xA300, UNDEFINED, {3}); }, {{"FileSource", I(3)}}, {}},
        {"sub-second", Dir::Exif, [](Ifd& d) { d.Bytes(0x9290, ASCII, {'1', '2', 0}); }, {{"SubSecTime", S("12")}}, {}},
        {"versions", Dir::Exif, [](Ifd& d) { d.Bytes(0x9000, UNDEFINED, {'0', '2', '3', '0'}) .Bytes(0xA000, UNDEFINED, {'0', '1', 0, 0}); }, {{"ExifVersion", S("0230")}, {"FlashPixVersion", S(std::string("01\0\0", 4))}}, {}},
        {"components", Dir::Exif, [](Ifd& d) { d.Bytes(0x9101, UNDEFINED, {1, 2, 3, 0}); }, {{"ComponentsConfiguration", I(1230)}}, {}},
        {"interoperability", Dir::Exif, [](Ifd& d) { d.Long(0xA005, {1234}); }, {{"InteroperabiliyIFDPointer", D(1234)}}, {}},
        {"maker note", Dir::Exif, [](Ifd& d) { d.Bytes(0x927C, UNDEFINED, std::vector<std::uint8_t>(5000, 7)); }, {{"MakerNote", I(0)}}, {}},
        {"device settings ignored", Dir::Exif, [](Ifd& d) { d.Bytes(0xA40B, UNDEFINED, {1, 2, 3, 4, 5}); }, {}, {"DeviceSettingDescription"}},
        {"later entry wins", Dir::Exif, [](Ifd& d) { d.KeepOrder() .Short(0x8822, {1}) .Ascii(0x9003, "first") .Short(0x8822, {3}) .Ascii(0x9003, "second"); }, {{"ExposureProgram", I(3)}, {"DateTimeOriginal", S("second")}}, {}},
        {"later entry of another type", Dir::Exif, [](Ifd& d) { d.KeepOrder().Short(0xA002, {640}).Rational(0xA002, {{1, 1}}); }, {{"PixelXDimension", I(640)}}, {}},
    };
    // clang-format on
    return cases;
}

TEST(DirectoryReader, StoredValuesInBothByteOrders) {
    for (const auto order : BothOrders()) {
        for (const ValueCase& c : Cases()) {
            ExifJpegBuilder b(order);
            b.Ifd0().Ascii(0x010F, "Maker");
            Ifd& target = c.dir == Dir::Ifd0 ? b.Ifd0() : c.dir == Dir::Ifd1 ? b.Ifd1() : b.Exif();
            if (c.dir == Dir::Ifd0) target.Remove(0x010F);
            c.add(target);
            if (c.dir == Dir::Ifd0 && target.empty()) target.Short(0x0128, {2});
            Loaded l(b);
            ASSERT_TRUE(l.x.ret) << c.name;
            const ExifDict& dict = DictOf(l.x, c.dir);
            const char* bo = order == fixtures::ByteOrder::Little ? " (II)" : " (MM)";
            for (const auto& [key, value] : c.expect) {
                const ExifValue* got = dict.Find(key);
                ASSERT_NE(got, nullptr) << c.name << bo << ": " << key;
                EXPECT_EQ(*got, value) << c.name << bo << ": " << key;
            }
            for (const auto& key : c.absent)
                EXPECT_FALSE(dict.Has(key)) << c.name << bo << ": " << key;
        }
    }
}

struct CommentCase {
    const char* name;
    std::vector<std::uint8_t> header;
    std::string body;
    std::string expect;
};

TEST(DirectoryReader, UserCommentCodes) {
    const std::vector<std::uint8_t> ascii = {'A', 'S', 'C', 'I', 'I', 0, 0, 0};
    const std::vector<std::uint8_t> jis = {'J', 'I', 'S', 0, 0, 0, 0, 0};
    const std::vector<std::uint8_t> unicode = {'U', 'N', 'I', 'C', 'O', 'D', 'E', 0};
    const std::vector<std::uint8_t> undef(8, 0);
    const std::vector<std::uint8_t> other = {'E', 'B', 'C', 'D', 'I', 'C', 0, 0};
    // "日本" in ISO-2022-JP: ESC $ B, two JIS X 0208 pairs, ESC ( B.
    const std::string jisText = "\x1b$BF|K\\\x1b(B";
    // clang-format off
    const CommentCase cases[] = {
        {"ascii", ascii, "Hello", "Hello"},
        {"ascii lower case code", {'a', 's', 'c', 'i', 'i', 0, 0, 0}, "x", "x"},
        {"jis to UTF-8", jis, jisText, "日本"},
        {"unicode kept as UTF-8", unicode, "caf\xc3\xa9", "caf\xc3\xa9"},
        {"undefined keeps body without zeros", undef, std::string("a\0b", 3), "ab"},
        {"unknown code empties", other, std::string(300, 'z'), ""},
        {"CR LF becomes CR", ascii, "a\r\nb\nc", "a\rb\nc"},
        {"header only", ascii, "", ""},
    };
    // clang-format on
    for (const auto order : BothOrders()) {
        for (const auto& c : cases) {
            ExifJpegBuilder b(order);
            b.Ifd0().Ascii(0x010F, "Maker");
            std::vector<std::uint8_t> value = c.header;
            value.insert(value.end(), c.body.begin(), c.body.end());
            b.Exif().Bytes(0x9286, UNDEFINED, value);
            Loaded l(b);
            const ExifValue* got = l.x.IFDe.Find("usercomment");  // keys ignore letter case
            ASSERT_NE(got, nullptr) << c.name;
            EXPECT_EQ(std::get<std::string>(*got), c.expect) << c.name;
        }
    }
}

TEST(DirectoryReader, InlineDecodersOnValueFields) {
    constexpr auto II = exifGPS::kLittleEndian;
    constexpr auto MM = exifGPS::kBigEndian;
    EXPECT_EQ(exifGPS::ByteOrder(II, 4, 0x78, 0x56, 0x34, 0x12), 0x12345678u);
    EXPECT_EQ(exifGPS::ByteOrder(MM, 4, 0x78, 0x56, 0x34, 0x12), 0x78563412u);
    EXPECT_EQ(exifGPS::ByteOrder(II, 2, 0x07, 0x00), 7u);
    EXPECT_EQ(exifGPS::ByteOrder(0x5858, 4, 1, 2, 3, 4), 0u);
    EXPECT_EQ(exifGPS::ByteOrder(II, 3, 1, 2, 3, 4), 0u);
    EXPECT_EQ(exifGPS::ByteToShort(0x00000007, II), 7);
    EXPECT_EQ(exifGPS::ByteToShort(0x00070000, MM), 7);
    std::int64_t first = -1, second = -1;
    exifGPS::ByteToShortR(0x01020304, MM, first, second);
    EXPECT_EQ(first, 0x0102);
    EXPECT_EQ(second, 0x0304);
    exifGPS::ByteToShortR(0x01020304, II, first, second);
    EXPECT_EQ(first, 0x0304);
    EXPECT_EQ(second, 0x0102);
    exifGPS::ByteToShortR(0x01020304, 0, first, second);  // unknown order leaves them
    EXPECT_EQ(first, 0x0304);
    // Bytes 1, 2, 3, 0 in file order give 1230 in either order; 2, 2, 0, 0 give 2200.
    EXPECT_EQ(exifGPS::ByteToLong(0x00030201, II), 1230);
    EXPECT_EQ(exifGPS::ByteToLong(0x01020300, MM), 1230);
    EXPECT_EQ(exifGPS::ByteToLong(0x00000202, II), 2200);
    EXPECT_EQ(exifGPS::ByteTo3Bit(0x00000159, II), 0x59);
    EXPECT_EQ(exifGPS::ByteTo3Bit(0x00FF0000, MM), 0x7F);
    EXPECT_EQ(exifGPS::ByteToChar(0x03000000, MM), 3);
    EXPECT_EQ(exifGPS::ByteToChar(0x00000003, II), 3);
    EXPECT_EQ(exifGPS::ByteToASCIIe2(0x30323330, MM), "0230");
    EXPECT_EQ(exifGPS::ByteToASCIIe2(0x30323330, II), "0320");
    EXPECT_EQ(exifGPS::ByteToASCIIe2(0x30323330, 0), "");
    EXPECT_EQ(exifGPS::ByteOrderS(II, 0xFF, 0xFF, 0xFF, 0x12), 0xFFFFFFu);
}

}  // namespace
}  // namespace lumivex::test
