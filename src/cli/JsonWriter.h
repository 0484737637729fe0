#pragma once
// Appends JSON values to a string. Byte strings become strings whose characters are the bytes
// U+0000 to U+00FF, so that every stored byte survives the trip.
#include <cstdint>
#include <string>
#include <string_view>

namespace lumivex {

class JsonWriter {
  public:
    explicit JsonWriter(std::string& out) : out_(out) {}

    void Bytes(std::string_view bytes);  // each byte one character
    void Text(std::string_view text);    // UTF-8 as it stands when valid, else as bytes
    void Integer(std::int64_t value);
    // Doubles keep a ".0" when whole, so that they read back as doubles; infinite and
    // undefined values, which JSON cannot hold, are written as null.
    void Double(double value);
    void Raw(std::string_view json) { out_ += json; }

  private:
    void Escaped(std::string_view utf8);

    std::string& out_;
};

}  // namespace lumivex
