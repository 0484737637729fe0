// The masked and default number forms that every report and dialog shares.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/DisplayText.h"
#include "core/NumberFormat.h"

namespace lumivex {
namespace {

// The masks of the report's common lines are tested with the report; these are the rest.
TEST(NumberFormat, MasksUsedByTheProgram) {
    const double inf = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        const char *mask, *expect;
    } cases[] = {
        // clang-format off
        {4, "###.0", "4.0"}, {2.97, "###.0#", "2.97"}, {3, "###.0#", "3.0"}, {-0.001, "-###.00", "0.00"},
        {1234567.0, "#####", "1234567"}, {12.5, "#####", "13"}, {-5, "#####", "-5"},
        {1.0 / 3, "#####.####", "0.3333"}, {7, "0000", "0007"}, {-inf, "###.0", "-INF"},
        {std::nan(""), "##", "NAN"},
        // clang-format on
    };
    for (const auto& c : cases)
        EXPECT_EQ(Format(c.value, c.mask), c.expect) << c.value << " " << c.mask;
    // 309 digits and ".00"
    EXPECT_EQ(Format(std::numeric_limits<double>::max(), "-###.00").size(), 312u);
}

TEST(NumberFormat, DefaultForm) {
    EXPECT_EQ(DefaultText(-0.0) + " " + DefaultText(1e300) + " " + DefaultText(4294967295.0),
              "0 1e+300 4294967295");
    EXPECT_EQ(std::stod(DefaultText(35.658166666666666)), 35.658166666666666);
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
