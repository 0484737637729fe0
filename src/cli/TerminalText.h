#pragma once
// Names and Exif texts come from files and cards that anybody may have written. Printed as
// they stand, an escape sequence among them would move the cursor, recolour or retitle the
// user's terminal; so the text output shows such characters escaped instead.
#include <string>
#include <string_view>

namespace lumivex {

// Valid UTF-8 as it stands, but control characters (C0 and DEL as \xHH, C1 as \u00HH) and
// bytes that are not UTF-8 (as \xHH, always 80 or above) escaped.
std::string TerminalText(std::string_view bytes);

}  // namespace lumivex
