#pragma once
// The checks a command makes of the folders it is given, each saying on `err` what is wrong,
// so that a folder that cannot be read never passes for an empty one.
#include <cstdio>
#include <filesystem>

namespace lumivex {

class FolderScan;

class FolderCheck {
  public:
    // False when `folder` is missing, no folder, or cannot be looked at or opened.
    static bool Exists(const std::filesystem::path& folder, std::FILE* err);
    // False when the scan could not list the folder, or not to its end.
    static bool Listed(const FolderScan& scan, const std::filesystem::path& folder, std::FILE* err);
    // True when both paths name one folder, whatever the way to it (a link, a bind mount).
    static bool Same(const std::filesystem::path& a, const std::filesystem::path& b);
};

}  // namespace lumivex
