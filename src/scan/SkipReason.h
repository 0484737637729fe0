#pragma once
// Why a folder entry gave no thumbnail, and how that is told to the user. Every command that
// walks a folder explains its skips through these, so one entry gets one reason everywhere.
#include <filesystem>
#include <string>

namespace lumivex {

enum class SkipReason { NotAnImageName, Unreadable, NoExif, NoThumbnail };

const char* SkipReasonText(SkipReason reason);

// The reason a reader gives after trying a file: whether it opened it, and found Exif there.
SkipReason SkipReasonOf(bool opened, bool hadExif);

// The text for the user. An unreadable entry is looked at once more to say what it is: a
// folder, a link to nothing, a special file, gone, or a file refused with the system's reason.
std::string SkipText(const std::filesystem::path& file, SkipReason reason);

}  // namespace lumivex
