// `lumivex info`: JSON lines that keep every stored value and its type, report texts, and the
// exit status for unreadable files.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "CommandOutput.h"
#include "ExifJpegBuilder.h"
#include "cli/InfoCommand.h"

namespace lumivex::test {
namespace {

TEST(InfoCommand, JsonTextExitStatusAndControlCharacters) {
    fixtures::ScratchDir dir;
    const std::string a = dir.path() / "a.JPG", b = dir.path() / "b.JPG";
    fixtures::ExifJpegBuilder full(fixtures::ByteOrder::Big);
    full.Ifd0().Ascii(0x010F, "Mak\xe9").Short(0x0112, {6}).Rational(0x011A, {{72, 1}});
    full.Ifd0().Ascii(0x0110, "a\"b\\c");
    full.Exif().Bytes(0x9000, fixtures::UNDEFINED, {'0', '2', 0, 0}).Long(0xA002, {4000});
    full.Gps().Ascii(1, "N").Rational(2, {{35, 1}, {0, 0}, {0, 1}});
    full.JpegThumbnail(16, 8);
    full.Write(a);
    fixtures::ExifJpegBuilder plain;
    plain.Ifd0().Ascii(0x010F, "X");
    plain.Signature("JFIF");
    plain.Write(b);

    const Output o = RunCommand<InfoCommand>({"--json", a, b});
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.err, "");
    const auto newline = o.out.find('\n');
    ASSERT_NE(newline, std::string::npos);
    ExpectPieces(o.out.substr(0, newline),
                 {"\"exif\":true", "\"Orientation\":6,", "\"XResolutionA\":72.0,",
                  "\"PixelXDimension\":4000.0",
                  "\"Make\":\"Mak\xc3\xa9\"",  // byte 0xE9 as U+00E9
                  "\"Model\":\"a\\\"b\\\\c\"", "\"ExifVersion\":\"02\\u0000\\u0000\"",
                  "\"Latitude2\":null",  // 0/0 minutes
                  "\"IFD1\":{", "\"Compression\":6"});
    EXPECT_EQ(o.out.substr(newline + 1),
              "{\"file\":\"" + b +
                  "\",\"exif\":false,\"IFD0\":{},\"IFD1\":{},\"IFDe\":{},\"IFDg\":{}}\n");

    const Output text = RunCommand<InfoCommand>({a});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.out.find('\r'), std::string::npos);
    ExpectPieces(text.out, {"\nMak\xc3\xa9\n", "Orientation=6\n", "LatitudeRef=N\n"});

    const Output missing = RunCommand<InfoCommand>({"--json", dir.path() / "none.jpg", a});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err,
              "lumivex: " + (dir.path() / "none.jpg").string() + ": ファイルが見つかりません。\n");
    ExpectPieces(missing.out, {"none.jpg\",\"exif\":false", "a.JPG\",\"exif\":true"});
    EXPECT_EQ(RunCommand<InfoCommand>({}).status, 2);

    // Text from a file never reaches the terminal as control characters, and a file name that
    // is not UTF-8 still names its file in JSON.
    const std::string file = dir.path() / "\xff\x1b]0;t\x07.JPG";
    fixtures::ExifJpegBuilder odd;
    odd.Ifd0().Ascii(0x010F, "Ma\x1b[2Jke").Ascii(0x0110, "\xc2\x9b[1m");  // ESC, then C1 CSI
    odd.Write(file);
    const Output escaped = RunCommand<InfoCommand>({file});
    EXPECT_EQ(escaped.out.find_first_of("\x1b\x07\r\xff"), std::string::npos) << escaped.out;
    EXPECT_EQ(escaped.out.find("\xc2\x9b"), std::string::npos);
    ExpectPieces(escaped.out, {"\\xff\\x1b]0;t\\x07.JPG ==\n", "Ma\\x1b[2Jke\n", "\\u009b[1m\n"});
    const Output json = RunCommand<InfoCommand>({"--json", file});
    ExpectPieces(json.out,
                 {"\"file\":\"" + dir.path().string() + "/\\udcff\\u001b]0;t\\u0007.JPG\""});
}

}  // namespace
}  // namespace lumivex::test
