// `lumivex info`: JSON lines that keep every stored value and its type, report texts, and the
// exit status for unreadable files.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "ExifJpegBuilder.h"
#include "cli/InfoCommand.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

struct Output {
    int status = 0;
    std::string out, err;
};

std::string ReadAll(std::FILE* f) {
    std::rewind(f);
    std::string s;
    char buf[4096];
    std::size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0)
        s.append(buf, n);
    std::fclose(f);
    return s;
}

Output RunInfo(const std::vector<std::string>& args) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    Output o;
    o.status = InfoCommand().Run(args, out, err);
    o.out = ReadAll(out);
    o.err = ReadAll(err);
    return o;
}

class InfoCommandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("lumivex-info-" + std::to_string(::getpid()));
        fs::create_directories(dir_);
        fixtures::ExifJpegBuilder b(fixtures::ByteOrder::Big);
        b.Ifd0().Ascii(0x010F, "Mak\xe9").Short(0x0112, {6}).Rational(0x011A, {{72, 1}});
        b.Ifd0().Ascii(0x0110, "a\"b\\c");
        b.Exif().Bytes(0x9000, fixtures::UNDEFINED, {'0', '2', 0, 0}).Long(0xA002, {4000});
        b.Gps().Ascii(1, "N").Rational(2, {{35, 1}, {0, 0}, {0, 1}});
        b.JpegThumbnail(16, 8);
        b.Write(dir_ / "a.JPG");
        fixtures::ExifJpegBuilder plain;
        plain.Ifd0().Ascii(0x010F, "X");
        plain.Signature("JFIF");
        plain.Write(dir_ / "b.JPG");
    }
    void TearDown() override { fs::remove_all(dir_); }
    fs::path dir_;
};

TEST_F(InfoCommandTest, JsonKeepsValuesAndTypes) {
    const Output o = RunInfo({"--json", (dir_ / "a.JPG").string(), (dir_ / "b.JPG").string()});
    EXPECT_EQ(o.status, 0);
    EXPECT_EQ(o.err, "");
    const auto newline = o.out.find('\n');
    ASSERT_NE(newline, std::string::npos);
    const std::string first = o.out.substr(0, newline);
    const std::string second = o.out.substr(newline + 1);
    EXPECT_NE(first.find("\"exif\":true"), std::string::npos);
    EXPECT_NE(first.find("\"Orientation\":6,"), std::string::npos) << first;
    EXPECT_NE(first.find("\"XResolutionA\":72.0,"), std::string::npos);
    EXPECT_NE(first.find("\"PixelXDimension\":4000.0"), std::string::npos);
    EXPECT_NE(first.find("\"Make\":\"Mak\xc3\xa9\""), std::string::npos);  // byte 0xE9 as U+00E9
    EXPECT_NE(first.find("\"Model\":\"a\\\"b\\\\c\""), std::string::npos);
    EXPECT_NE(first.find("\"ExifVersion\":\"02\\u0000\\u0000\""), std::string::npos);
    EXPECT_NE(first.find("\"Latitude2\":null"), std::string::npos);  // 0/0 minutes
    EXPECT_NE(first.find("\"IFD1\":{"), std::string::npos);
    EXPECT_NE(first.find("\"Compression\":6"), std::string::npos);
    EXPECT_EQ(second, "{\"file\":\"" + (dir_ / "b.JPG").string() +
                          "\",\"exif\":false,\"IFD0\":{},\"IFD1\":{},\"IFDe\":{},\"IFDg\":{}}\n");
}

TEST_F(InfoCommandTest, ReportsAndExitStatus) {
    const Output text = RunInfo({(dir_ / "a.JPG").string()});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.out.find('\r'), std::string::npos);
    EXPECT_NE(text.out.find("\nMak\xc3\xa9\n"), std::string::npos);
    EXPECT_NE(text.out.find("Orientation=6\n"), std::string::npos);
    EXPECT_NE(text.out.find("LatitudeRef=N\n"), std::string::npos);

    const Output missing =
        RunInfo({"--json", (dir_ / "none.jpg").string(), (dir_ / "a.JPG").string()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("none.jpg"), std::string::npos);
    EXPECT_NE(missing.out.find("none.jpg\",\"exif\":false"), std::string::npos);
    EXPECT_NE(missing.out.find("a.JPG\",\"exif\":true"), std::string::npos);

    EXPECT_EQ(RunInfo({}).status, 2);
}

}  // namespace
}  // namespace lumivex
