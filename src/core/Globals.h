#pragma once
// Small stateless helpers shared by every layer: conversions, name splitting and the
// extension test that decides which files count as images.
#include <cstdint>
#include <string>
#include <string_view>

#include "core/Color.h"

namespace lumivex {

class Settings;

// The line end of every text built for display (clipboard text and KML use "\n").
inline constexpr std::string_view gCR = "\r";

int gConvBI(bool value, bool positive);
bool gConvIB(std::int64_t value, bool positive);
std::string gConvBS(bool value, bool positive);
std::int64_t gClrCtoI(Color c);
Color gClrItoC(std::int64_t i);

// Bytes read as one big-endian unsigned number; "" gives 0. Wraps beyond 8 bytes.
std::uint64_t gBinToInt(std::string_view bytes);
// The bit field of `length` bits starting at bit `start` (bit 0 lowest), shifted down.
std::uint64_t gBitR(std::uint64_t value, unsigned start, unsigned length);

// Without a "." in name: body = name and extn is left as it was.
void gExtractBodyAndExtn(std::string_view name, std::string& body, std::string& extn);
std::string gExtractExtn(std::string_view name);
bool gDottedFI(std::string_view name);

// ASCII-only case folding: names, keys and file headers are compared without regard to letter
// case throughout the program; bytes above 0x7F are compared as they stand.
std::string gLowerAscii(std::string_view text);
bool gEqualNoCase(std::string_view a, std::string_view b);

// The file-type test: only the extension decides, against the enabled groups of `prefs`.
bool gChkGx(const Settings& prefs, std::string_view type, std::string_view name);

}  // namespace lumivex
