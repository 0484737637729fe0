#pragma once
// Reads a fixture through ExifReader straight from memory, as the scan reads a file's head.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "ExifJpegBuilder.h"
#include "exif/ExifReader.h"

// The fuzz target, linked in: it runs the bytes through every entry point, from memory and
// from a file, and every bound it checks aborts the test when broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace lumivex::test {

using Bytes = std::vector<std::uint8_t>;
using Values = std::vector<std::pair<std::string, ExifValue>>;

class Loaded {
  public:
    explicit Loaded(const fixtures::ExifJpegBuilder& b) : bytes_(b.Build(&layout)) {
        x.fbytes = bytes_;
        x.GetExif();
    }
    fixtures::Layout layout;
    ExifReader x;

  private:
    Bytes bytes_;
};

// Stored values by kind: whole number, number, text.
inline const auto I = [](std::int64_t v) { return ExifValue(v); };
inline const auto D = [](double v) { return ExifValue(v); };
inline const auto S = [](std::string v) { return ExifValue(std::move(v)); };

// The least that counts as Exif: an IFD0 holding a Make.
inline fixtures::ExifJpegBuilder WithMake(fixtures::ByteOrder order = fixtures::ByteOrder::Little,
                                          const std::string& make = "Maker") {
    fixtures::ExifJpegBuilder b(order);
    b.Ifd0().Ascii(0x010F, make);
    return b;
}

}  // namespace lumivex::test
