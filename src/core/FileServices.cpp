#include "core/FileServices.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "core/FolderItemEx.h"
#include "core/Globals.h"

namespace lumivex {
namespace {

constexpr const char* kTemporalFolderName = "com.ZenmoraWorksJP.LumivexPlus";
// Each level holds a descriptor and a stack frame; a tree deeper than this is refused.
constexpr int kMaxDepth = 4096;

struct Children {
    std::vector<std::string> files;    // everything that is not a real folder, links included
    std::vector<std::string> folders;  // real folders only
};

bool IsRealFolder(int dirFd, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat st {};
    return fstatat(dirFd, entry.d_name, &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(st.st_mode);
}

// Lists the direct children of the open folder, sorted by name so the order of deletion (and
// where a stop leaves things) does not depend on the file system's order.
int ListChildren(int dirFd, Children& out) {
    const int listFd = dup(dirFd);
    if (listFd < 0) return errno;
    DIR* dir = fdopendir(listFd);
    if (dir == nullptr) {
        const int err = errno;
        close(listFd);
        return err;
    }
    errno = 0;
    while (const dirent* entry = readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            (IsRealFolder(dirFd, *entry) ? out.folders : out.files).emplace_back(name);
        errno = 0;
    }
    const int err = errno;
    closedir(dir);
    std::sort(out.files.begin(), out.files.end());
    std::sort(out.folders.begin(), out.folders.end());
    return err;
}

// Keeps the first failure; tells whether the walk must stop now.
bool Record(int err, bool continueIfErrors, int& first) {
    if (err == 0) return false;
    if (first == 0) first = err;
    return !continueIfErrors;
}

int DeleteFolderAt(int parentFd, const char* name, bool continueIfErrors, int depth);

int DeleteChildren(int dirFd, bool continueIfErrors, int depth) {
    Children children;
    if (const int err = ListChildren(dirFd, children); err != 0) return err;
    int first = 0;
    for (const std::string& file : children.files) {
        // A child that vanished meanwhile is as good as deleted.
        const int err = unlinkat(dirFd, file.c_str(), 0) == 0 || errno == ENOENT ? 0 : errno;
        if (Record(err, continueIfErrors, first)) return first;
    }
    for (const std::string& folder : children.folders) {
        const int err = DeleteFolderAt(dirFd, folder.c_str(), continueIfErrors, depth + 1);
        if (Record(err, continueIfErrors, first)) return first;
    }
    return first;
}

int DeleteFolderAt(int parentFd, const char* name, bool continueIfErrors, int depth) {
    if (depth > kMaxDepth) return ELOOP;
    // O_NOFOLLOW: a folder swapped for a link after it was listed fails instead of being
    // followed out of the tree.
    const int fd = openat(parentFd, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) return errno == ENOENT ? 0 : errno;
    const int err = DeleteChildren(fd, continueIfErrors, depth);
    close(fd);
    if (err != 0) return err;
    return unlinkat(parentFd, name, AT_REMOVEDIR) == 0 || errno == ENOENT ? 0 : errno;
}

std::filesystem::path WithoutTrailingSlash(std::filesystem::path path) {
    while (!path.has_filename() && path.has_relative_path())
        path = path.parent_path();
    return path;
}

bool IsOwnRealFolder(const std::filesystem::path& folder) {
    struct stat st {};
    return lstat(folder.c_str(), &st) == 0 && S_ISDIR(st.st_mode) && st.st_uid == geteuid();
}

int ReadAll(int fd, std::size_t limit, std::string& out) {
    out.resize(limit);
    std::size_t got = 0;
    while (got < limit) {
        const ssize_t n = read(fd, out.data() + got, limit - got);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return errno;
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    out.resize(got);
    return 0;
}

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = write(fd, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

// Makes the rename itself durable; a failure here loses nothing that was written.
void SyncFolder(const std::filesystem::path& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

}  // namespace

int gDeleteEntireFolder(const std::filesystem::path& folder, bool continueIfErrors) {
    if (folder.empty()) return 0;
    // A trailing "/" would make the system resolve a link; "/", "." and ".." are refused.
    const std::filesystem::path target = WithoutTrailingSlash(folder);
    const std::string last = target.filename().string();
    if (last.empty() || last == "." || last == "..") return EINVAL;
    struct stat st {};
    if (lstat(target.c_str(), &st) != 0) return errno == ENOENT ? 0 : errno;
    if (S_ISLNK(st.st_mode)) return unlink(target.c_str()) == 0 ? 0 : errno;
    if (!S_ISDIR(st.st_mode)) return ENOTDIR;
    return DeleteFolderAt(AT_FDCWD, target.c_str(), continueIfErrors, 0);
}

std::filesystem::path gGetTemporalFolder() {
    std::error_code ec;
    const std::filesystem::path base = std::filesystem::temp_directory_path(ec);
    if (ec) return {};
    const std::filesystem::path folder = base / kTemporalFolderName;
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) return {};
    // Someone else's folder or a planted link must not receive our files.
    return IsOwnRealFolder(folder) ? folder : std::filesystem::path();
}

bool gFileMatch(const std::filesystem::path& item, std::string_view creator,
                std::string_view type) {
    return gEqualNoCase(FolderItemEx::gGetCreator(item), creator) &&
           gEqualNoCase(FolderItemEx::gGetType(item), type);
}

int gReadFileHead(const std::filesystem::path& file, std::size_t limit, std::string& out) {
    out.clear();
    const int fd = open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return errno;
    struct stat st {};
    int err = fstat(fd, &st) != 0 ? errno : 0;
    if (err == 0 && S_ISDIR(st.st_mode)) err = EISDIR;
    if (err == 0 && !S_ISREG(st.st_mode)) err = EINVAL;
    if (err == 0)
        err = ReadAll(fd, std::min(limit, static_cast<std::size_t>(std::max<off_t>(st.st_size, 0))),
                      out);
    close(fd);
    return err;
}

bool gWriteFileAtomic(const std::filesystem::path& file, std::string_view bytes) {
    std::string name = file.filename().string();
    name.insert(0, 1, '.').append(".XXXXXX");
    std::string temp = (file.parent_path() / name).string();
    const int fd = mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) return false;
    bool ok = WriteAll(fd, bytes) && fsync(fd) == 0;
    ok = close(fd) == 0 && ok;
    ok = ok && rename(temp.c_str(), file.c_str()) == 0;
    if (!ok) {
        unlink(temp.c_str());
        return false;
    }
    SyncFolder(file.parent_path());
    return true;
}

}  // namespace lumivex
