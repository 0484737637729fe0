#include "core/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

namespace lumivex {
namespace {

bool WriteAll(int fd, std::span<const std::uint8_t> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t w = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (w < 0 && errno == EINTR) continue;
        if (w <= 0) return false;
        done += static_cast<std::size_t>(w);
    }
    return true;
}

}  // namespace

std::filesystem::path OutputFile::WriteTemporary(const std::filesystem::path& file,
                                                 std::span<const std::uint8_t> bytes) {
    std::string pattern =
        (file.parent_path() / ("." + file.filename().string() + ".XXXXXX")).string();
    const int fd = ::mkostemp(pattern.data(), O_CLOEXEC);
    if (fd < 0) return {};
    ::fchmod(fd, 0644);
    const bool ok = WriteAll(fd, bytes);
    const bool closed = ::close(fd) == 0;
    if (!ok || !closed) {
        ::unlink(pattern.c_str());
        return {};
    }
    return pattern;
}

OutputFile::Result OutputFile::Replace(const std::filesystem::path& file,
                                       std::span<const std::uint8_t> bytes) {
    const auto temp = WriteTemporary(file, bytes);
    if (temp.empty()) return Result::Failed;
    if (::rename(temp.c_str(), file.c_str()) != 0) {
        ::unlink(temp.c_str());
        return Result::Failed;
    }
    return Result::Written;
}

OutputFile::Result OutputFile::CreateNew(const std::filesystem::path& file,
                                         std::span<const std::uint8_t> bytes) {
    std::error_code ec;
    if (std::filesystem::symlink_status(file, ec).type() != std::filesystem::file_type::not_found)
        return ec ? Result::Failed : Result::Exists;
    const auto temp = WriteTemporary(file, bytes);
    if (temp.empty()) return Result::Failed;
    // Both moves refuse to replace an existing name, which closes the gap after the check
    // above; a file system without the first (rare) may still offer hard links.
    int rc = ::renameat2(AT_FDCWD, temp.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE);
    if (rc != 0 && (errno == EINVAL || errno == ENOSYS)) {
        rc = ::link(temp.c_str(), file.c_str());
        const int err = errno;
        ::unlink(temp.c_str());
        errno = err;
    }
    if (rc == 0) return Result::Written;
    const int err = errno;
    ::unlink(temp.c_str());  // gone already after a move or a link attempt; harmless
    return err == EEXIST ? Result::Exists : Result::Failed;
}

}  // namespace lumivex
