#pragma once
// Turns one directory's raw entries into its dictionary, as the directory's tag table says.
// Entries are taken in file order and a later entry with the same tag overwrites the earlier
// value; GPS angles come last, so that their reference letters count wherever they stand.
#include <span>
#include <string>
#include <vector>

#include "exif/DirEntry.h"
#include "exif/ExifDict.h"
#include "exif/ExifTagTable.h"
#include "exif/ValueReader.h"

namespace lumivex {

class DirectoryReader {
  public:
    explicit DirectoryReader(ValueReader& values) : v_(values) {}

    void Run(const std::vector<DirEntry>& dir, std::span<const TagRow> rows, ExifDict& out);

  private:
    void Apply(const TagRow& row, const DirEntry& e, ExifDict& out);
    void ApplyGps(const TagRow& row, const DirEntry& e, ExifDict& out);
    // One rational at `dist` under key+"A" and key+"B"; returns their quotient.
    double Rational(const std::string& key, const DirEntry& e, std::uint64_t dist, ExifDict& out,
                    bool isSigned = false);
    // Three rationals under key+"1".."3", each shown with "##" and joined by `sep`.
    void Triple(const std::string& key, const DirEntry& e, const char* sep, ExifDict& out);
    void SubjectArea(const DirEntry& e, ExifDict& out);
    void Angle(bool latitude, const DirEntry& e, ExifDict& out);
    double Short(const DirEntry& e, std::uint64_t dist) { return v_.Number(e, dist, 2); }

    ValueReader& v_;
};

}  // namespace lumivex
