#include "cli/FolderCheck.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cerrno>

#include "cli/TerminalText.h"
#include "core/ErrorText.h"
#include "scan/FolderScan.h"

namespace lumivex {
namespace {

// Opened once before anything else is done, so that a folder that cannot be read stops the
// command before it makes its target folder.
bool Opens(const std::filesystem::path& folder, std::FILE* err) {
    DIR* dir = ::opendir(folder.c_str());
    if (dir != nullptr) {
        ::closedir(dir);
        return true;
    }
    std::fprintf(err, "lumivex: %s: フォルダを読み込めません（%s）。\n",
                 TerminalText(folder.string()).c_str(), ErrorText(errno).c_str());
    return false;
}

}  // namespace

bool FolderCheck::Exists(const std::filesystem::path& folder, std::FILE* err) {
    struct stat st {};
    const int rc = ::stat(folder.c_str(), &st);
    if (rc == 0 && S_ISDIR(st.st_mode)) return Opens(folder, err);
    const int error = rc == 0 ? ENOTDIR : errno;
    if (error == ENOENT || error == ENOTDIR)
        std::fprintf(err, "lumivex: %s: フォルダが見つかりません。\n",
                     TerminalText(folder.string()).c_str());
    else
        std::fprintf(err, "lumivex: %s: フォルダを開けません（%s）。\n",
                     TerminalText(folder.string()).c_str(), ErrorText(error).c_str());
    return false;
}

bool FolderCheck::Listed(const FolderScan& scan, const std::filesystem::path& folder,
                         std::FILE* err) {
    if (scan.ListError() == 0) return true;
    std::fprintf(err, "lumivex: %s: フォルダを読み込めません（%s）。\n",
                 TerminalText(folder.string()).c_str(), ErrorText(scan.ListError()).c_str());
    return false;
}

bool FolderCheck::Same(const std::filesystem::path& a, const std::filesystem::path& b) {
    struct stat sa {};
    struct stat sb {};
    return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

}  // namespace lumivex
