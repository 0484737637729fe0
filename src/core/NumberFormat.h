#pragma once
// Numbers as text. One masked form and one default form serve every report, dialog and file
// the program writes, so a value reads the same wherever it shows up.
#include <cstdint>
#include <string>
#include <string_view>

namespace lumivex {

// Formats `value` by a mask of '#', '0', '.' and an optional leading '-':
//  - '#' is a digit if there is one, '0' always a digit; the fraction is rounded to as many
//    places as the mask has after its '.', halves away from zero, trailing zeros beyond the '0'
//    places dropped;
//  - the point is written only when a fraction digit follows it ("###.##" on 50 gives "50");
//  - at least one integer digit is written ("##" on 0 gives "0", "###.##" on 0.5 gives "0.5");
//  - integer digits are never cut, whatever the mask's width;
//  - a negative value always keeps its minus sign: a mask never hides a sign.
// Infinite and undefined values give the default form ("INF", "-INF", "NAN").
std::string Format(double value, std::string_view mask);

// The default form: a whole number as its digits ("4000", "-3"); any other value in the
// shortest text that reads back as the same double ("35.658166666666666", "1e+300").
std::string DefaultText(double value);
std::string DefaultText(std::int64_t value);

}  // namespace lumivex
