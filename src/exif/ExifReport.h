#pragma once
// The six plain report texts of a file's tags: four summaries of readable values without
// labels (lines in a fixed order, to stand beside a column of labels) and two raw listings
// of "Name=value" lines. Every line ends with gCR; "--" marks a missing tag, "**" one that is
// there but not rendered.
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "exif/ExifDict.h"

namespace lumivex {

class ExifReport {
  public:
    // How a line of the raw listings renders its tag.
    enum class LineForm : std::uint8_t {
        Value,            // the stored value's own text
        Ratio,            // A "/" B, both keys needed
        Mark,             // "**" when the tag is there
        Bits,             // the three sample sizes joined by ","
        Iso,              // "**" for a list of speeds, else the one value
        SubjectArea,      // X,Y,W,H or X,Y,D or X,Y
        SubjectLocation,  // X,Y
    };
    struct ListingLine {
        const char* name;  // the tag's name, also the line's
        LineForm form;
    };

    ExifReport(const ExifDict& ifd0, const ExifDict& ifde) : ifd0_(ifd0), ifde_(ifde) {}

    std::string GetInfo1() const;  // 4 lines: description, make, model, software
    std::string GetInfo2() const;  // 3 lines: date, resolutions
    std::string GetInfo3() const;  // 6 lines: exposure
    std::string GetInfo4() const;  // 6 lines: size, quality, lens, metering, light, ISO
    std::string GetInfo5() const;  // 30 lines: IFD0 listing
    std::string GetInfo6() const;  // 56 lines: Exif listing

    // The lines of the two listings in their order; the information dialog shows the same.
    static std::span<const ListingLine> TiffListing();
    static std::span<const ListingLine> ExifListing();
    // One listing line's value; nothing when its tag is missing.
    static std::optional<std::string> Render(const ExifDict& d, const ListingLine& line);

    // Value forms shared with the information dialog.
    static std::optional<std::string> Value(const ExifDict& d, std::string_view key);
    static std::optional<std::string> Ratio(const ExifDict& d, std::string_view key);
    static std::optional<double> Quotient(const ExifDict& d, std::string_view key);
    // A signed rational's quotient: its parts are kept as 32-bit patterns and read back as
    // two's complement here, so -1/3 shows as -0.33.
    static std::optional<double> SignedQuotient(const ExifDict& d, std::string_view key);
    static std::string DateWithSlashes(std::string text);

  private:
    const ExifDict& ifd0_;
    const ExifDict& ifde_;
};

}  // namespace lumivex
