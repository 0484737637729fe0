#pragma once
// File-system services the program needs around its own files: the scratch folder, deleting a
// folder tree without ever following a link, whole small files read in one go and files
// replaced atomically.
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace lumivex {

// Largest text or settings file read whole; anything beyond is not looked at.
inline constexpr std::size_t kSmallFileLimit = std::size_t{1} << 20;

// Deletes `folder` and everything in it: files first, then each subfolder the same way, then
// the folder itself (only when nothing failed). Returns 0 or an errno value: with
// `continueIfErrors` false the first failure ends the walk and is returned; with true the walk
// goes on and the first failure is returned. Symbolic links are never followed: a link inside
// is deleted as a file, and when `folder` itself is a link only the link goes. A missing
// folder gives 0; a `folder` that is neither folder nor link gives ENOTDIR and stays; "/",
// "." and ".." give EINVAL.
int gDeleteEntireFolder(const std::filesystem::path& folder, bool continueIfErrors);

// The program's scratch folder in the system's temporary folder, made (mode 0700) when
// missing. Empty when it cannot be made or is not a real folder owned by this user.
std::filesystem::path gGetTemporalFolder();

// True when the item's creator and type codes are `creator` and `type` (case ignored).
bool gFileMatch(const std::filesystem::path& item, std::string_view creator, std::string_view type);

// Reads at most `limit` bytes from the start of a regular file into `out`. Returns 0 or an
// errno value (ENOENT when missing, EISDIR for a folder, EINVAL for other special files, which
// are never opened for reading so a FIFO cannot block).
int gReadFileHead(const std::filesystem::path& file, std::size_t limit, std::string& out);

// Replaces `file` with `bytes` through a uniquely named temporary file in the same folder that
// is written, flushed to disk and renamed over it. On any failure the temporary file is
// removed, `file` is left as it was and the result is false.
bool gWriteFileAtomic(const std::filesystem::path& file, std::string_view bytes);

}  // namespace lumivex
