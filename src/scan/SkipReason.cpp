#include "scan/SkipReason.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "core/ErrorText.h"

namespace lumivex {
namespace {

std::string Refused(int error) {
    if (error == ENOENT) return "ファイルが見つかりません";
    return std::string(SkipReasonText(SkipReason::Unreadable)) + "（" + ErrorText(error) + "）";
}

// What an entry that could not be read is; only asked after a failure, so a scan pays
// nothing for it on good files.
std::string WhyUnreadable(const std::filesystem::path& file) {
    struct stat st {};
    if (::lstat(file.c_str(), &st) != 0) return Refused(errno);
    if (S_ISLNK(st.st_mode) && ::stat(file.c_str(), &st) != 0)
        return errno == ENOENT ? "リンク先がありません" : Refused(errno);
    if (S_ISDIR(st.st_mode)) return "フォルダです";
    if (!S_ISREG(st.st_mode)) return "通常のファイルではありません";
    // O_NONBLOCK: the entry may have turned into a FIFO since.
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return Refused(errno);
    ::close(fd);
    return SkipReasonText(SkipReason::Unreadable);
}

}  // namespace

const char* SkipReasonText(SkipReason reason) {
    switch (reason) {
        case SkipReason::NotAnImageName:
            return "画像ファイルの拡張子ではありません";
        case SkipReason::Unreadable:
            return "ファイルを読み込めません";
        case SkipReason::NoExif:
            return "Exif情報がありません";
        case SkipReason::NoThumbnail:
            return "サムネイルがありません";
    }
    return "";
}

SkipReason SkipReasonOf(bool opened, bool hadExif) {
    if (!opened) return SkipReason::Unreadable;
    return hadExif ? SkipReason::NoThumbnail : SkipReason::NoExif;
}

std::string SkipText(const std::filesystem::path& file, SkipReason reason) {
    if (reason == SkipReason::Unreadable) return WhyUnreadable(file);
    return SkipReasonText(reason);
}

}  // namespace lumivex
