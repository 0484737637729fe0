// `lumivex info`: JSON lines that keep every stored value and its type, report texts, and the
// exit status for unreadable files.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "CommandOutput.h"
#include "ExifJpegBuilder.h"
#include "cli/InfoCommand.h"

namespace lumivex::test {
namespace {

Output RunInfo(const std::vector<std::string>& args) {
    return RunCommand<InfoCommand>(args);
}

TEST(InfoCommand, JsonTextAndExitStatus) {
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

    const Output o = RunInfo({"--json", a, b});
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

    const Output text = RunInfo({a});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.out.find('\r'), std::string::npos);
    ExpectPieces(text.out, {"\nMak\xc3\xa9\n", "Orientation=6\n", "LatitudeRef=N\n"});

    const Output missing = RunInfo({"--json", dir.path() / "none.jpg", a});
    EXPECT_EQ(missing.status, 1);
    ExpectPieces(missing.err, {"none.jpg"});
    ExpectPieces(missing.out, {"none.jpg\",\"exif\":false", "a.JPG\",\"exif\":true"});
    EXPECT_EQ(RunInfo({}).status, 2);
}

}  // namespace
}  // namespace lumivex::test
