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
    std::string name = ".";
    name += file.filename().string();
    name += ".XXXXXX";
    std::string pattern = (file.parent_path() / name).string();
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
    return CreateNewIn(AT_FDCWD, file.c_str(), bytes);
}

OutputFile::Result OutputFile::CreateNewIn(int folderFd, const char* name,
                                           std::span<const std::uint8_t> bytes) {
    // O_EXCL refuses any existing name, links included, in the same step that creates it, so
    // nothing is checked first and nothing can slip in between. No temporary file and rename:
    // for a batch of small thumbnails those doubled the cost of each one.
    const int fd =
        ::openat(folderFd, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0644);
    if (fd < 0) return errno == EEXIST ? Result::Exists : Result::Failed;
    if (WriteAll(fd, bytes)) {
        if (::close(fd) == 0) return Result::Written;
        // The data may be lost (a network file system reports that only here); the name is
        // this call's own file, created a moment ago.
        const int error = errno;
        ::unlinkat(folderFd, name, 0);
        errno = error;
        return Result::Failed;
    }
    const int error = errno;  // the cleanup below must not hide why the write failed
    // Removes the half file, provided the name still is the file this call created.
    struct stat mine {};
    struct stat named {};
    if (::fstat(fd, &mine) == 0 && ::fstatat(folderFd, name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
        mine.st_dev == named.st_dev && mine.st_ino == named.st_ino)
        ::unlinkat(folderFd, name, 0);
    ::close(fd);
    errno = error;
    return Result::Failed;
}

}  // namespace lumivex
