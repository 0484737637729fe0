// IFD0, IFD1 and Exif directory entries as stored values, in both byte orders.
#include <gtest/gtest.h>

#include <functional>

#include "ExifTestSupport.h"

namespace lumivex::test {
namespace {

using namespace fixtures;  // the builder and field type names

// A user comment: an eight-byte code, padded with zeros, then the body.
std::function<void(Ifd&)> Comment(std::string code, std::string body) {
    return [=](Ifd& d) {
        Bytes value(code.begin(), code.end());
        value.resize(8, 0);
        value.insert(value.end(), body.begin(), body.end());
        d.Bytes(0x9286, UNDEFINED, value);
    };
}

TEST(DirectoryReader, StoredValuesInBothByteOrders) {
    enum Dir { kIfd0, kIfd1, kExif, kGps };
    struct Case {
        const char* name;
        Dir dir;
        std::function<void(Ifd&)> add;
        Values expect;  // exact stored values
        std::vector<std::string> absent;
    };
    // clang-format off
    const Case cases[] = {
        {"orientation", kIfd0, [](Ifd& d) { d.Short(0x0112, {6}); }, {{"Orientation", I(6)}}, {}},
        {"width SHORT", kIfd0, [](Ifd& d) { d.Short(0x0100, {160}); }, {{"ImageWidth", I(160)}}, {}},
        {"width LONG", kIfd0, [](Ifd& d) { d.Long(0x0100, {160}); }, {{"ImageWidth", D(160)}}, {}},
        {"width RATIONAL", kIfd0, [](Ifd& d) { d.Rational(0x0100, {{160, 1}}); }, {}, {"ImageWidth"}},
        {"make", kIfd0, [](Ifd& d) { d.Ascii(0x010F, "ABCDE"); }, {{"Make", S("ABCDE")}}, {}},
        {"short text", kIfd0, [](Ifd& d) { d.Ascii(0x0110, "12"); }, {{"Model", S("12")}}, {}},
        {"zeros inside text", kIfd0, [](Ifd& d) { d.Bytes(0x0131, ASCII, {'A', 0, 'B', 0, 0}); }, {{"Software", S("AB")}}, {}},
        {"resolution", kIfd0, [](Ifd& d) { d.Rational(0x011A, {{300, 1}}); }, {{"XResolutionA", D(300)}, {"XResolutionB", D(1)}}, {}},
        {"bits per sample", kIfd0, [](Ifd& d) { d.Short(0x0102, {8, 10, 12}); }, {{"BitsPerSample1", D(8)}, {"BitsPerSample2", D(10)}, {"BitsPerSample3", D(12)}}, {}},
        {"marks", kIfd0, [](Ifd& d) { d.Ascii(0x8298, "(c) me").Short(0x0211, {1, 2, 3}).Long(0x0111, {99}); }, {{"Copyright", I(0)}, {"YCbCrCoefficients", I(0)}, {"StripOffsets", I(0)}}, {}},
        {"thumbnail pointer", kIfd1, [](Ifd& d) { d.Long(0x0201, {5000}).Long(0x0202, {77}); }, {{"JPEGInterchangeFormat", D(5000)}, {"JPEGInterchangeFormatLength", D(77)}}, {}},
        {"strips LONG", kIfd1, [](Ifd& d) { d.Long(0x0111, {70000}).Long(0x0117, {57600}); }, {{"StripOffsets", D(70000)}, {"StripByteCounts", D(57600)}}, {}},
        {"strips SHORT", kIfd1, [](Ifd& d) { d.Short(0x0111, {700, 900}); }, {{"StripOffsets", I(700)}}, {}},
        {"IFD1 skips tables", kIfd1, [](Ifd& d) { d.Ascii(0x8298, "c").Short(0x0102, {8, 8, 8}).Ascii(0x010F, "M1"); }, {{"Make", S("M1")}}, {"Copyright", "BitsPerSample1"}},
        {"negative bias", kExif, [](Ifd& d) { d.SRational(0x9204, {{-1, 3}}); }, {{"ExposureBiasValueA", D(4294967295.0)}, {"ExposureBiasValueB", D(3)}}, {}},
        {"negative in low bytes only", kExif, [](Ifd& d) { d.SRational(0x9201, {{0x12FFFFFF, 0x00000001}}); }, {{"ShutterSpeedValueA", D(4294967295.0)}, {"ShutterSpeedValueB", D(1)}}, {}},
        {"high byte ignored", kExif, [](Ifd& d) { d.SRational(0x9204, {{0x12000001, 3}}); }, {{"ExposureBiasValueA", D(1)}}, {}},
        {"exposure", kExif, [](Ifd& d) { d.Rational(0x829A, {{1, 250}}).Rational(0x829D, {{28, 10}}); }, {{"ExposureTimeA", D(1)}, {"ExposureTimeB", D(250)}, {"FNumberA", D(28)}, {"FNumberB", D(10)}}, {}},
        {"ISO single", kExif, [](Ifd& d) { d.Short(0x8827, {400}); }, {{"ISOSpeedRatings", I(400)}}, {}},
        {"ISO list", kExif, [](Ifd& d) { d.Short(0x8827, {400, 800}); }, {{"ISOSpeedRatingsM", I(400)}}, {"ISOSpeedRatings"}},
        {"subject area 2", kExif, [](Ifd& d) { d.Short(0x9214, {10, 20}); }, {{"SubjectAreaX", I(10)}, {"SubjectAreaY", I(20)}}, {"SubjectAreaD"}},
        {"subject area 3", kExif, [](Ifd& d) { d.Short(0x9214, {10, 20, 30}); }, {{"SubjectAreaX", D(10)}, {"SubjectAreaY", D(20)}, {"SubjectAreaD", D(30)}}, {"SubjectAreaW"}},
        {"subject area 4", kExif, [](Ifd& d) { d.Short(0x9214, {10, 20, 30, 40}); }, {{"SubjectAreaX", D(10)}, {"SubjectAreaW", D(30)}, {"SubjectAreaH", D(40)}}, {"SubjectAreaD"}},
        {"subject area 5", kExif, [](Ifd& d) { d.Short(0x9214, {1, 2, 3, 4, 5}); }, {}, {"SubjectAreaX"}},
        {"subject location", kExif, [](Ifd& d) { d.Short(0xA214, {1200, 800}); }, {{"SubjectLocationX", I(1200)}, {"SubjectLocationY", I(800)}}, {}},
        {"pixels LONG", kExif, [](Ifd& d) { d.Long(0xA002, {4000}).Short(0xA003, {3000}); }, {{"PixelXDimension", D(4000)}, {"PixelYDimension", I(3000)}}, {}},
        {"flash high byte", kExif, [](Ifd& d) { d.Short(0x9209, {0x0159}); }, {{"Flash", I(0x59)}}, {}},
        {"file source", kExif, [](Ifd& d) { d.Bytes(0xA300, UNDEFINED, {3}); }, {{"FileSource", I(3)}}, {}},
        {"sub-second", kExif, [](Ifd& d) { d.Bytes(0x9290, ASCII, {'1', '2', 0}); }, {{"SubSecTime", S("12")}}, {}},
        {"versions", kExif, [](Ifd& d) { d.Bytes(0x9000, UNDEFINED, {'0', '2', '3', '0'}) .Bytes(0xA000, UNDEFINED, {'0', '1', 0, 0}); }, {{"ExifVersion", S("0230")}, {"FlashPixVersion", S(std::string("01\0\0", 4))}}, {}},
        {"components", kExif, [](Ifd& d) { d.Bytes(0x9101, UNDEFINED, {1, 2, 3, 0}); }, {{"ComponentsConfiguration", I(1230)}}, {}},
        {"interoperability", kExif, [](Ifd& d) { d.Long(0xA005, {1234}); }, {{"InteroperabiliyIFDPointer", D(1234)}}, {}},
        {"maker note", kExif, [](Ifd& d) { d.Bytes(0x927C, UNDEFINED, std::vector<std::uint8_t>(5000, 7)); }, {{"MakerNote", I(0)}}, {}},
        {"device settings ignored", kExif, [](Ifd& d) { d.Bytes(0xA40B, UNDEFINED, {1, 2, 3, 4, 5}); }, {}, {"DeviceSettingDescription"}},
        {"later entry wins", kExif, [](Ifd& d) { d.KeepOrder() .Short(0x8822, {1}) .Ascii(0x9003, "first") .Short(0x8822, {3}) .Ascii(0x9003, "second"); }, {{"ExposureProgram", I(3)}, {"DateTimeOriginal", S("second")}}, {}},
        {"later entry of another type", kExif, [](Ifd& d) { d.KeepOrder().Short(0xA002, {640}).Rational(0xA002, {{1, 1}}); }, {{"PixelXDimension", I(640)}}, {}},
        // Keys ignore letter case. "日本" in ISO-2022-JP: ESC $ B, two JIS X 0208 pairs, ESC ( B.
        {"comment ascii", kExif, Comment("ASCII", "Hello"), {{"usercomment", S("Hello")}}, {}},
        {"comment jis to UTF-8", kExif, Comment("JIS", "\x1b$BF|K\\\x1b(B"), {{"UserComment", S("日本")}}, {}},
        {"comment unicode kept as UTF-8", kExif, Comment("UNICODE", "caf\xc3\xa9"), {{"UserComment", S("caf\xc3\xa9")}}, {}},
        {"comment undefined keeps body without zeros", kExif, Comment("", std::string("a\0b", 3)), {{"UserComment", S("ab")}}, {}},
        {"comment of unknown code empties", kExif, Comment("EBCDIC", std::string(300, 'z')), {{"UserComment", S("")}}, {}},
        {"comment CR LF becomes CR", kExif, Comment("ASCII", "a\r\nb\nc"), {{"UserComment", S("a\rb\nc")}}, {}},
        {"comment header only", kExif, Comment("ASCII", ""), {{"UserComment", S("")}}, {}},
        {"gps version", kGps, [](Ifd& d) { d.Bytes(0, BYTE, {2, 2, 0, 0}); }, {{"VersionID", I(2200)}}, {}},
        {"gps altitude", kGps, [](Ifd& d) { d.Bytes(5, BYTE, {1}).Rational(6, {{12340, 10}}); }, {{"AltitudeRef", I(1)}, {"Altitude", S("1234 m")}, {"AltitudeA", D(12340)}}, {}},
        {"gps time", kGps, [](Ifd& d) { d.Rational(7, {{12, 1}, {5, 1}, {3050, 100}}); }, {{"TimeStamp", S("12:5:31")}, {"TimeStamp3A", D(3050)}}, {}},
        {"gps texts", kGps, [](Ifd& d) { d.Ascii(8, "07").Ascii(18, "WGS-84").Ascii(9, "A").Ascii(10, "3"); }, {{"Satellites", S("07")}, {"MapDatum", S("WGS-84")}, {"Status", S("A")}, {"MeasureMode", S("3")}}, {}},
        {"gps measures", kGps, [](Ifd& d) { d.Rational(11, {{5, 2}}).Rational(13, {{1234, 100}}).Ascii(12, "K").Rational(15, {{1, 3}}).Rational(26, {{1, 8}}); }, {{"DOP", S("2.5")}, {"Speed", S("12.34")}, {"SpeedRef", S("K")}, {"Track", S("0.3333")}, {"DestDistance", S("0.125")}}, {}},
        {"gps destination", kGps, [](Ifd& d) { d.Ascii(19, "N").Rational(20, {{35, 1}, {39, 1}, {29, 1}}).Rational(22, {{139, 1}, {4, 1}, {5, 1}}); }, {{"DestLatitudeRef", S("N")}, {"DestLatitude", S("35.39.29")}, {"DestLongitude", S("139.4.5")}}, {}},
        // Whole degrees, minutes and seconds; decimal minutes; decimal degrees; no reference.
        {"gps latitude", kGps, [](Ifd& d) { d.Ascii(1, "N").Rational(2, {{35, 1}, {39, 1}, {2940, 100}}); }, {{"Latitude", S("北緯35度39分29.4秒")}, {"Latitude2", D((39.0 / 60.0 + 35.0) + 29.4 / 3600.0)}, {"Latitude2A", D(39)}, {"Latitude3B", D(100)}}, {}},
        {"gps west, lower case", kGps, [](Ifd& d) { d.Ascii(3, "w").Rational(4, {{139, 1}, {4512, 100}, {0, 1}}); }, {{"Longitude", S("西経139度45分7.2秒")}}, {}},
        {"gps decimal degrees", kGps, [](Ifd& d) { d.Ascii(1, "n").Rational(2, {{355, 10}, {0, 1}, {0, 1}}); }, {{"Latitude", S("北緯35度30分0秒")}, {"Latitude2", D(35.5)}}, {}},
        {"gps no reference", kGps, [](Ifd& d) { d.Rational(2, {{10, 1}, {0, 1}, {0, 1}}); }, {{"Latitude", S("南緯10度0分0秒")}, {"Latitude2", D(-10.0)}}, {}},
        {"gps reference after the angle", kGps, [](Ifd& d) { d.KeepOrder().Rational(2, {{1, 1}, {0, 1}, {0, 1}}).Ascii(1, "N"); }, {{"Latitude", S("北緯1度0分0秒")}, {"Latitude2", D(1.0)}}, {}},
        {"gps zero denominators", kGps, [](Ifd& d) { d.Rational(2, {{1, 0}, {0, 0}, {0, 0}}).Rational(6, {{5, 0}}); }, {{"Latitude1B", D(0)}, {"Altitude", S("INF m")}}, {}},
    };
    // clang-format on
    for (const auto order : {ByteOrder::Little, ByteOrder::Big}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(c.name) + (order == ByteOrder::Little ? " (II)" : " (MM)"));
            ExifJpegBuilder b(order);
            Ifd* dirs[] = {&b.Ifd0(), &b.Ifd1(), &b.Exif(), &b.Gps()};
            c.add(*dirs[c.dir]);
            if (b.Ifd0().empty()) b.Ifd0().Short(0x0128, {2});  // IFD0 needs an entry to be Exif
            Loaded l(b);
            ASSERT_TRUE(l.x.ret);
            const ExifDict* dicts[] = {&l.x.IFD0, &l.x.IFD1, &l.x.IFDe, &l.x.IFDg};
            const ExifDict& dict = *dicts[c.dir];
            for (const auto& [key, value] : c.expect) {
                ASSERT_NE(dict.Find(key), nullptr) << key;
                EXPECT_EQ(*dict.Find(key), value) << key;
            }
            for (const auto& key : c.absent)
                EXPECT_FALSE(dict.Has(key)) << key;
        }
    }
}

}  // namespace
}  // namespace lumivex::test
