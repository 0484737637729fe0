#pragma once
// Writes exported pictures. A file is first written under a temporary name in the target
// folder and only then given its name, so that a full disk or a vanished card never leaves a
// half file under a real name.
#include <cstdint>
#include <filesystem>
#include <span>

namespace lumivex {

class OutputFile {
  public:
    enum class Result { Written, Exists, Failed };

    // Gives `file` the bytes, replacing a file of that name.
    static Result Replace(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);
    // Gives `file` the bytes only when no entry of that name exists; an existing one is left
    // alone and reported as Exists, also when it appears while the bytes are being written.
    static Result CreateNew(const std::filesystem::path& file, std::span<const std::uint8_t> bytes);

  private:
    // Writes the bytes to a new temporary file beside `file`; its path, or empty on failure.
    static std::filesystem::path WriteTemporary(const std::filesystem::path& file,
                                                std::span<const std::uint8_t> bytes);
};

}  // namespace lumivex
