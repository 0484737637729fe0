// The masked and default number forms that every report and dialog shares.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/DisplayText.h"
#include "core/NumberFormat.h"

namespace lumivex {
namespace {

TEST(NumberFormat, MasksUsedByTheProgram) {
    const double inf = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        const char *mask, *expect;
    } cases[] = {
        // clang-format off
        {50, "###.##", "50"}, {50.5, "###.##", "50.5"}, {0.5, "###.##", "0.5"},
        {5.125, "###.##", "5.13"}, {2.8, "###.0", "2.8"}, {4, "###.0", "4.0"},
        {2.97, "###.0#", "2.97"}, {3, "###.0#", "3.0"}, {2.346, "###.0#", "2.35"},
        {-0.333333, "-###.00", "-0.33"}, {0.666666, "-###.00", "0.67"}, {-0.001, "-###.00", "0.00"},
        {1234.0, "#####", "1234"}, {1234567.0, "#####", "1234567"}, {0, "#####", "0"},
        {12.5, "#####", "13"}, {-5, "#####", "-5"}, {2.5, "#####.####", "2.5"},
        {1.0 / 3, "#####.####", "0.3333"}, {7, "0000", "0007"}, {12345, "0000", "12345"},
        {inf, "##", "INF"}, {-inf, "###.0", "-INF"}, {std::nan(""), "##", "NAN"},
        // clang-format on
    };
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.value, c.mask), c.expect) << c.value << " " << c.mask;
    const std::string huge = Format(1e300, "#####.##");
    EXPECT_EQ(huge.size(), 301u);
    EXPECT_EQ(huge.front(), '1');
    // 309 digits and ".00"
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "-###.00").size(), 312u);
}

TEST(NumberFormat, DefaultForm) {
    const std::pair<double, const char*> cases[] = {
        {4000.0, "4000"},
        {-3.0, "-3"},
        {-0.0, "0"},
        {4294967295.0, "4294967295"},
        {2.5, "2.5"},
        {1e300, "1e+300"},
        {std::numeric_limits<double>::infinity(), "INF"},
        {std::nan(""), "NAN"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(DefaultText(value), text) << value;
    EXPECT_EQ(std::stod(DefaultText(35.658166666666666)), 35.658166666666666);
    EXPECT_EQ(DefaultText(std::int64_t{-42}), "-42");
    EXPECT_EQ(DefaultText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(DisplayText, Utf8OrLatin1) {
    EXPECT_TRUE(IsValidUtf8("日本 caf\xc3\xa9"));
    // Latin-1, overlong, surrogate, cut short
    for (const char* bad : {"caf\xe9", "\xc0\xaf", "\xed\xa0\x80", "\xe6\x97"})
        EXPECT_FALSE(IsValidUtf8(bad)) << bad;
    EXPECT_EQ(DisplayText("caf\xe9"), "caf\xc3\xa9");
    EXPECT_EQ(DisplayText("日本"), "日本");
    EXPECT_EQ(DisplayText(std::string("01\0\0", 4)), "01");
    EXPECT_EQ(Latin1ToUtf8("\xff"), "\xc3\xbf");
}

}  // namespace
}  // namespace lumivex
