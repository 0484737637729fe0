#include "scan/ExportTargets.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>

#include "core/Globals.h"

namespace lumivex {
namespace {

bool Identity(const std::filesystem::path& p, std::pair<dev_t, ino_t>& id) {
    struct stat st {};
    if (::stat(p.c_str(), &st) != 0) return false;
    id = {st.st_dev, st.st_ino};
    return true;
}

std::string Lower(std::string_view s) {
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

}  // namespace

ExportTargets::ExportTargets(const std::vector<std::filesystem::path>& sourceFolders) {
    for (const auto& folder : sourceFolders) {
        std::pair<dev_t, ino_t> id;
        if (Identity(folder, id) &&
            std::find(folders_.begin(), folders_.end(), id) == folders_.end())
            folders_.push_back(id);
    }
}

std::vector<std::filesystem::path> ExportTargets::FoldersOf(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> folders;
    for (const auto& p : paths) {
        std::filesystem::path parent = std::filesystem::path(p).parent_path();
        if (parent.empty()) parent = ".";
        // A folder's items come one after another, so the last one seen is nearly always it.
        if (!folders.empty() && folders.back() == parent) continue;
        if (std::find(folders.begin(), folders.end(), parent) == folders.end())
            folders.push_back(std::move(parent));
    }
    return folders;
}

std::string ExportTargets::TargetName(std::string_view fname) {
    std::string body, extn;
    gExtractBodyAndExtn(fname, body, extn);
    if (body.empty() || body.find('/') != std::string::npos) return {};
    return body + ".jpg";
}

bool ExportTargets::IsPictureName(std::string_view name) {
    static constexpr std::array<std::string_view, 44> kExtensions{
        "jpg",  "jpeg", "jpe",  "jfif", "jif", "thm", "tif", "tiff", "png", "gif", "bmp",
        "webp", "heic", "heif", "avif", "jp2", "jxl", "dng", "cr2",  "cr3", "crw", "nef",
        "nrw",  "arw",  "srf",  "sr2",  "orf", "rw2", "raf", "pef",  "raw", "rwl", "srw",
        "x3f",  "3fr",  "erf",  "kdc",  "mrw", "mos", "dcr", "iiq",  "psd", "tga", "ico"};
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return false;
    const std::string extn = Lower(name.substr(dot + 1));
    return std::find(kExtensions.begin(), kExtensions.end(), extn) != kExtensions.end();
}

bool ExportTargets::Protects(const std::filesystem::path& target) const {
    struct stat st {};
    if (::lstat(target.c_str(), &st) != 0) return false;  // nothing there to replace
    if (!IsPictureName(target.filename().string())) return false;
    std::pair<dev_t, ino_t> folder;
    std::filesystem::path parent = target.parent_path();
    if (parent.empty()) parent = ".";
    if (!Identity(parent, folder)) return true;  // cannot tell: leave it alone
    return std::find(folders_.begin(), folders_.end(), folder) != folders_.end();
}

}  // namespace lumivex
