#pragma once
// What the reader of each of the four directories does with each known tag: one row a tag,
// sorted by tag. Keys are the names under which the rest of the program finds values.
#include <cstdint>
#include <span>

namespace lumivex {

enum class TagRead : std::uint8_t {
    Short,        // first 16-bit value of the value field, an integer
    ShortOrLong,  // SHORT: as Short; LONG: the value field as a double; other types: nothing
    ValueField,   // the value field unchanged, as a double (a distance or a LONG value)
    StripField,   // LONG: the value field as a double; other types: as Short
    Mark,         // integer 0: only says that the tag is there
    Text,         // ASCII text, zero bytes dropped
    Rational,     // numerator under key+"A", denominator under key+"B", doubles
    SRational,    // as Rational, through the signed 24-bit decoder
    Char,         // first byte of the value field, an integer
    Low7Bits,     // low byte of the 16-bit value, cut to seven bits
    Digits4,      // the field's four bytes as four decimal digits
    Chars4,       // the field's four bytes as four characters, zero bytes kept
    ShortPair,    // both 16-bit values of the field, under key+"X" and key+"Y"
    Shorts3,      // three 16-bit values at the field's distance, under key+"1".."3"
    Comment,      // the user comment with its character-code header
    Iso,          // key for a single value, key+"M" (value not kept) for a list
    SubjectArea,  // by count: 2, 3 or 4 values under X, Y and D or W, H
    Ignore,       // known, passed over
    // The GPS directory's own shapes.
    Letter,     // first byte of the value field as a one-letter text, "" for a zero byte
    Measure,    // a rational, kept raw and shown with "#####.####" under key
    Altitude,   // a rational, kept raw and shown as whole metres under key
    TimeOfDay,  // three rationals under key+"1".."3", shown as "h:m:s" under key
    DestAngle,  // three rationals under key+"1".."3", shown as "d.m.s" under key
    Latitude,   // three rationals, text and signed degrees; read after every other tag
    Longitude,  // as Latitude
};

struct TagRow {
    std::uint16_t tag;
    TagRead read;
    const char* key;
};

std::span<const TagRow> Ifd0Rows();
std::span<const TagRow> Ifd1Rows();
std::span<const TagRow> ExifRows();
std::span<const TagRow> GpsRows();

// The row for `tag`, or nullptr when the table has none.
const TagRow* FindRow(std::span<const TagRow> rows, std::uint32_t tag);

}  // namespace lumivex
