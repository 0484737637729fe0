// The six report texts: fixed line counts, the value forms and the code tables.
#include <gtest/gtest.h>

#include <sstream>

#include "ExifTestSupport.h"
#include "exif/ExifReport.h"

namespace lumivex::test {
namespace {

std::vector<std::string> Lines(const std::string& text) {
    EXPECT_TRUE(text.empty() || text.back() == '\r') << "text must end with a carriage return";
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line, '\r');)
        lines.push_back(line);
    return lines;
}

std::vector<std::vector<std::string>> AllTexts(const ExifDict& ifd0, const ExifDict& ifde) {
    ExifReport r(ifd0, ifde);
    return {Lines(r.GetInfo1()), Lines(r.GetInfo2()), Lines(r.GetInfo3()),
            Lines(r.GetInfo4()), Lines(r.GetInfo5()), Lines(r.GetInfo6())};
}

TEST(ExifReport, LineCountsAndMissingTags) {
    const ExifDict empty;
    const auto texts = AllTexts(empty, empty);
    const std::size_t counts[] = {4, 3, 6, 6, 30, 56};
    for (std::size_t t = 0; t < 6; ++t) {
        ASSERT_EQ(texts[t].size(), counts[t]) << "text " << t + 1;
        for (const auto& line : texts[t])  // the last two texts name their tags
            EXPECT_EQ(t < 4 ? line : line.substr(line.find('=')), t < 4 ? "--" : "=--") << line;
    }
    EXPECT_EQ(texts[4][0], "ImageWidth=--");
    EXPECT_EQ(texts[4][29], "Copyright=--");
    EXPECT_EQ(texts[5][15], "InteroperabiliyIFDPointer=--");
    EXPECT_EQ(texts[5][54], "DeviceSettingDescription=--");
}

TEST(ExifReport, ValueForms) {
    const struct {
        const char* name;
        Values ifd0, ifde;
        int text;  // 1 to 6
        std::size_t line;
        std::string expect;
    } cases[] = {
        // clang-format off
        {"date slashes", {{"DateTime", S("2024:05:01 10:20:30")}}, {}, 2, 0, "2024/05/01 10:20:30"},
        {"dpi", {{"XResolutionA", D(300)}, {"XResolutionB", D(1)}}, {}, 2, 1, "300 DPI"},
        {"half a rational", {{"XResolutionA", D(300)}}, {}, 2, 1, "--"},
        {"f-number", {}, {{"FNumberA", D(28)}, {"FNumberB", D(10)}}, 3, 0, "f 2.8"},
        {"max aperture", {}, {{"MaxApertureValueA", D(297)}, {"MaxApertureValueB", D(100)}}, 3, 1, "f 2.97"},
        {"exposure 10/2500", {}, {{"ExposureTimeA", D(10)}, {"ExposureTimeB", D(2500)}}, 3, 2, "1/250"},
        {"exposure 0/1", {}, {{"ExposureTimeA", D(0)}, {"ExposureTimeB", D(1)}}, 3, 2, "1/INF"},
        {"bias -1/3", {}, {{"ExposureBiasValueA", D(4294967295.0)}, {"ExposureBiasValueB", D(3)}}, 3, 3, "-0.33"},
        {"program", {}, {{"ExposureProgram", I(3)}}, 3, 4, "露出優先"},
        {"flash 65", {}, {{"Flash", I(65)}}, 3, 5, "発光, 赤目"},
        {"flash 16", {}, {{"Flash", I(16)}}, 3, 5, "強制非発光"},
        {"pixels", {}, {{"PixelXDimension", D(4000)}, {"PixelYDimension", I(3000)}}, 4, 0, "4000 x 3000"},
        {"bits per pixel", {}, {{"CompressedBitsPerPixelA", D(7)}, {"CompressedBitsPerPixelB", D(2)}}, 4, 1, "3"},
        {"focal length", {}, {{"FocalLengthA", D(50)}, {"FocalLengthB", D(1)}}, 4, 2, "50 mm"},
        {"focal length frac", {}, {{"FocalLengthA", D(5126)}, {"FocalLengthB", D(1000)}}, 4, 2, "5.13 mm"},
        {"metering 5", {}, {{"MeteringMode", I(5)}}, 4, 3, "分割測光"},
        {"light 21", {}, {{"LightSource", I(21)}}, 4, 4, "D65"},
        {"iso", {}, {{"ISOSpeedRatings", I(400)}}, 4, 5, "400"},
        {"iso list", {}, {{"ISOSpeedRatingsM", I(400)}, {"ISOSpeedRatings", I(1)}}, 4, 5, "**"},
        {"raw resolution", {{"XResolutionA", D(72)}, {"XResolutionB", D(1)}}, {}, 5, 10, "XResolution=72/1"},
        {"raw marks", {{"StripOffsets", I(0)}}, {}, 5, 13, "StripOffsets=**"},
        {"raw bits per sample", {{"BitsPerSample1", D(8)}, {"BitsPerSample2", D(8)}, {"BitsPerSample3", D(8)}}, {}, 5, 2, "BitsPerSample=8,8,8"},
        {"raw latin-1 text", {{"Artist", S("Jos\xe9")}}, {}, 5, 28, "Artist=Jos\xc3\xa9"},
        {"raw exposure", {}, {{"ExposureTimeA", D(1)}, {"ExposureTimeB", D(250)}}, 6, 16, "ExposureTime=1/250"},
        {"raw signed keeps pattern", {}, {{"ExposureBiasValueA", D(4294967295.0)}, {"ExposureBiasValueB", D(3)}}, 6, 25, "ExposureBiasValue=4294967295/3"},
        {"raw iso list", {}, {{"ISOSpeedRatingsM", I(100)}}, 6, 20, "ISOSpeedRatings=**"},
        {"raw area 3", {}, {{"SubjectAreaX", D(1)}, {"SubjectAreaY", D(2)}, {"SubjectAreaD", D(3)}}, 6, 32, "SubjectArea=1,2,3"},
        {"raw area 4 and D", {}, {{"SubjectAreaX", D(1)}, {"SubjectAreaY", D(2)}, {"SubjectAreaW", D(3)}, {"SubjectAreaH", D(4)}, {"SubjectAreaD", D(9)}}, 6, 32, "SubjectArea=1,2,3,4"},
        {"raw location half", {}, {{"SubjectLocationX", I(5)}}, 6, 38, "SubjectLocation=--"},
        {"raw gain control", {}, {{"GainControlA", D(1)}, {"GainControlB", D(2)}}, 6, 50, "GainControl=1/2"},
        // clang-format on
    };
    for (const auto& c : cases) {
        ExifDict ifd0, ifde;
        for (const auto& [k, v] : c.ifd0)
            ifd0.Set(k, v);
        for (const auto& [k, v] : c.ifde)
            ifde.Set(k, v);
        const auto texts = AllTexts(ifd0, ifde);
        EXPECT_EQ(texts[c.text - 1].at(c.line), c.expect) << c.name;
    }
}

}  // namespace
}  // namespace lumivex::test
