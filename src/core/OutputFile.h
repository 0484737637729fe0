#pragma once
// Writes exported pictures. Neither way ever leaves a half file under a real name after a
// failed write (a full disk, a vanished card): Replace writes under a temporary name and then
// renames over the old file; CreateNew creates the name exclusively, so it never touches an
// existing file, and removes what it created when a write fails. Only a process killed in the
// middle of CreateNew can leave a short new file behind.
#include <cstdint>
#include <filesystem>
#include <span>

namespace lumivex {

class OutputFile {
  public:
    enum class Result { Written, Exists, Failed };

    // Gives `file` the bytes, replacing a file of that name.
    static Result Replace(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);
    // Gives `file` the bytes only when no entry of that name exists, not even a dangling link;
    // an existing one is left alone and reported as Exists. After Failed, errno tells why.
    static Result CreateNew(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);
    // The same for `name` in the open folder `folderFd`: a batch into one folder then spares
    // the kernel the walk along the folder's path for every file.
    static Result CreateNewIn(int folderFd, const char* name, std::span<const std::uint8_t> bytes);

  private:
    // Writes the bytes to a new temporary file beside `file`; its path, or empty on failure.
    static std::filesystem::path WriteTemporary(const std::filesystem::path& file,
                                                std::span<const std::uint8_t> bytes);
};

}  // namespace lumivex
