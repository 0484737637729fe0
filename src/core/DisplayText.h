#pragma once
// Texts taken from files keep their raw bytes. These helpers decide how such bytes are shown:
// as UTF-8 when they are valid UTF-8, else byte for byte as Latin-1.
#include <string>
#include <string_view>

namespace lumivex {

bool IsValidUtf8(std::string_view bytes);

// Length of the UTF-8 sequence that starts at s[i], or 0 when it is not a valid one
// (overlong forms, surrogates and values above U+10FFFF are invalid).
std::size_t Utf8SequenceLength(std::string_view s, std::size_t i);

// Each byte becomes the character U+0000 to U+00FF, encoded in UTF-8.
std::string Latin1ToUtf8(std::string_view bytes);

// The text to show for raw bytes: valid UTF-8 as it stands, anything else as Latin-1. Zero
// bytes, which some writers pad fixed fields with, are left out.
std::string DisplayText(std::string_view bytes);

}  // namespace lumivex
