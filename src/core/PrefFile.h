#pragma once
// The settings file: folder "Lumivex初期設定" in the user's configuration folder, file "pref".
// Written in the "pref4" layout; the older "pref", "pref2" and "pref3" layouts are still read
// and brought up to date.
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "core/Settings.h"

namespace lumivex {

enum class LoadResult { Loaded, FolderCreated, NoFile, Unreadable };

class PrefFile {
  public:
    // What the user is told when the folder exists but holds no settings file.
    static constexpr std::string_view kNoFileMessage =
        "初期設定ファイルがありません。デフォルトの設定で起動します。";
    static constexpr std::string_view kFolderName = "Lumivex初期設定";
    static constexpr std::string_view kFileName = "pref";

    // Lumivex初期設定 in the XDG configuration folder; empty when no home folder is known.
    static std::filesystem::path DefaultFolder();

    // Reads folder/pref over the values already in `s` (normally the defaults of InitAll).
    // A missing folder is created (FolderCreated); a missing file gives NoFile; a file that
    // cannot be read, or a folder that cannot be made, gives Unreadable. Values the file does
    // not reach keep what they were. `highlight` is the selection colour given to files of
    // the oldest layout, which did not store one.
    static LoadResult LoadPref(Settings& s, const std::filesystem::path& folder,
                               std::int64_t highlight = Settings::kDefaultHighlight);

    // Writes folder/pref atomically. False, with nothing written, when the folder is missing or
    // anything fails; the old file then stays as it was.
    static bool SavePref(const Settings& s, const std::filesystem::path& folder);

    // The truncated numeric value of a text: leading blanks, a sign, digits, an optional
    // fraction and exponent; anything after the number is ignored; no number gives 0; the
    // result is clamped to the 64-bit range.
    static std::int64_t Val(std::string_view text);
};

}  // namespace lumivex
