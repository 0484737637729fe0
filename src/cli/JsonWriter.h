#pragma once
// Appends JSON values to a string. Byte strings become strings whose characters are the bytes
// U+0000 to U+00FF, so that every stored byte survives the trip; texts are UTF-8.
#include <cstdint>
#include <string>
#include <string_view>

namespace lumivex {

class JsonWriter {
  public:
    explicit JsonWriter(std::string& out) : out_(out) {}

    void Bytes(std::string_view bytes);  // each byte one character
    // UTF-8 as it stands; a byte that is not part of valid UTF-8 (a file name may hold any)
    // becomes the lone surrogate U+DC80 to U+DCFF, as Python's "surrogateescape" has it, so
    // that a script can get the exact bytes back.
    void Text(std::string_view text);
    void Integer(std::int64_t value);
    // Doubles keep a ".0" when whole, so that they read back as doubles; infinite and
    // undefined values, which JSON cannot hold, are written as null.
    void Double(double value);
    void Raw(std::string_view json) { out_ += json; }

  private:
    void Escaped(std::string_view utf8);  // with the quotes
    void Body(std::string_view utf8);     // without
    void Hex(const char* prefix, unsigned char byte);

    std::string& out_;
};

}  // namespace lumivex
