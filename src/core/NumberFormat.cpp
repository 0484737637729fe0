#include "core/NumberFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace lumivex {
namespace {

// Large enough for DBL_MAX in fixed notation with a few decimals.
using Buffer = std::array<char, 400>;

std::string NonFinite(double value) {
    if (std::isnan(value)) return "NAN";
    return value < 0 ? "-INF" : "INF";
}

struct Mask {
    int intZeros = 0;    // integer places that always show a digit
    int fracZeros = 0;   // fraction places that always show a digit
    int fracPlaces = 0;  // fraction places in all
};

Mask ParseMask(std::string_view mask) {
    if (!mask.empty() && mask.front() == '-') mask.remove_prefix(1);
    Mask m;
    const auto point = mask.find('.');
    const auto intPart = mask.substr(0, point);
    m.intZeros = static_cast<int>(std::count(intPart.begin(), intPart.end(), '0'));
    if (point != std::string_view::npos) {
        const auto frac = mask.substr(point + 1);
        m.fracPlaces = static_cast<int>(
            std::count_if(frac.begin(), frac.end(), [](char c) { return c == '#' || c == '0'; }));
        m.fracZeros = static_cast<int>(std::count(frac.begin(), frac.end(), '0'));
    }
    return m;
}

// |value| rounded to `places` decimals, halves away from zero (30.5 gives 31, as people
// expect). Beyond 2^52 a double holds no fraction, so there is nothing to round.
double RoundHalfAway(double value, int places) {
    const double scale = std::pow(10.0, places);
    const double scaled = std::fabs(value) * scale;
    if (scaled >= 4503599627370496.0) return std::fabs(value);
    return std::round(scaled) / scale;
}

}  // namespace

std::string Format(double value, std::string_view mask) {
    if (!std::isfinite(value)) return NonFinite(value);
    const Mask m = ParseMask(mask);
    Buffer buf;
    const auto res =
        std::to_chars(buf.data(), buf.data() + buf.size(), RoundHalfAway(value, m.fracPlaces),
                      std::chars_format::fixed, m.fracPlaces);
    std::string_view digits(buf.data(), static_cast<std::size_t>(res.ptr - buf.data()));
    std::string_view intDigits = digits.substr(0, digits.find('.'));
    std::string_view fracDigits;
    if (m.fracPlaces > 0) fracDigits = digits.substr(intDigits.size() + 1);
    while (fracDigits.size() > static_cast<std::size_t>(m.fracZeros) && fracDigits.back() == '0')
        fracDigits.remove_suffix(1);

    std::string out;
    const bool zero =
        std::all_of(digits.begin(), digits.end(), [](char c) { return c == '0' || c == '.'; });
    if (value < 0 && !zero) out.push_back('-');
    if (static_cast<int>(intDigits.size()) < m.intZeros)
        out.append(static_cast<std::size_t>(m.intZeros) - intDigits.size(), '0');
    out.append(intDigits);
    if (!fracDigits.empty()) {
        out.push_back('.');
        out.append(fracDigits);
    }
    return out;
}

std::string DefaultText(double value) {
    if (!std::isfinite(value)) return NonFinite(value);
    if (value == 0) return "0";  // also for -0.0
    Buffer buf;
    std::to_chars_result res;
    if (value == std::trunc(value) && std::fabs(value) < 1e17) {
        res =
            std::to_chars(buf.data(), buf.data() + buf.size(), value, std::chars_format::fixed, 0);
    } else {
        res = std::to_chars(buf.data(), buf.data() + buf.size(), value);
    }
    return std::string(buf.data(), res.ptr);
}

std::string DefaultText(std::int64_t value) {
    std::array<char, 24> buf;
    const auto res = std::to_chars(buf.data(), buf.data() + buf.size(), value);
    return std::string(buf.data(), res.ptr);
}

}  // namespace lumivex
