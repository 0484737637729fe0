#include "model/FolderTree.h"

#include <dirent.h>

#include <algorithm>
#include <array>
#include <system_error>

#include "core/Globals.h"
#include "exif/ExifReader.h"
#include "platform/Volumes.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

// Calls visit(name, d_type) for each entry of a folder in the file system's order, "." and
// ".." left out, until it returns false. An unreadable folder has no entries.
template <typename Visit>
void ForEachEntry(const fs::path& folder, Visit&& visit) {
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return;
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name == "." || name == "..") continue;
        if (!visit(name, e->d_type)) break;
    }
    ::closedir(dir);
}

bool IsDirectory(const fs::path& path) {
    std::error_code ec;
    return fs::is_directory(path, ec);
}

// A bundle in the macOS sense: never a row, never a reason to open the parent.
bool IsPackageName(std::string_view name) {
    return gEqualNoCase(gExtractExtn(name), "app");
}

}  // namespace

FolderTree::FolderTree(FolderTreeOptions options) : options_(std::move(options)) {}

void FolderTree::Clear() {
    dataArray_.clear();
    live_.clear();
    outbox_.clear();
    camera_.Begin(0, {});
    cameraWon_.reset();
    ++round_;
}

void FolderTree::MakeTable() {
    Clear();
    AddRowDictionary(dataArray_, "group", kGroupTitle, "", "", -1, false);
    MakeListVol();
    if (!options_.desktop.empty()) MakeList(dataArray_, options_.desktop);
}

void FolderTree::MakeTable(const std::vector<std::string>& volumes) {
    Clear();
    AddRowDictionary(dataArray_, "group", kGroupTitle, "", "", -1, false);
    for (const std::string& p : volumes)
        AddRowDictionary(dataArray_, "item", "volume", p, "", -1, false);
    if (!options_.desktop.empty()) MakeList(dataArray_, options_.desktop);
}

void FolderTree::MakeListVol() {
    Volumes::gMakeVolumeList(options_.volumeMode);
    for (int i = 0; i <= Volumes::gVolumeCount(); ++i) {
        const std::string p = Volumes::gGetVolumeInfo(i);
        AddRowDictionary(dataArray_, "item", "volume", p, "", -1, false);
    }
}

RowRecord& FolderTree::AddRowDictionary(Rows& array, std::string_view kind, std::string_view vofo,
                                        const std::string& path, std::string_view exif,
                                        int insertAt, bool alias, RowRecord* parent) {
    auto row = std::make_unique<RowRecord>();
    row->kind = kind;
    row->vofo = vofo;
    row->path = path;
    row->exif = exif;
    row->alias = gConvBS(alias, true);
    // The disk is asked later, off the caller's thread; until then the row cannot open.
    row->isLeaf = path.empty() ? "false" : "true";
    row->expand = "false";
    row->name = DisplayName(vofo, path);
    row->parent = parent;
    row->serial = nextSerial_++;
    live_[row->serial] = row.get();
    if (!path.empty()) Ask(FolderQuestion::Kind::Marks, *row);
    const auto at = insertAt < 0 || static_cast<std::size_t>(insertAt) > array.size()
                        ? array.end()
                        : array.begin() + insertAt;
    return **array.insert(at, std::move(row));
}

std::string FolderTree::DisplayName(std::string_view vofo, const std::string& path) const {
    if (path.empty()) return std::string(vofo);
    if (vofo == "volume") return Volumes::gVolumeName(path);
    const std::string last = fs::path(path).filename().string();
    return last.empty() ? path : last;
}

void FolderTree::MakeList(Rows& array, const fs::path& folder, RowRecord* parent) {
    for (const ShownFolder& f : FolderLister().Folders(folder.string()))
        AddRowDictionary(array, "item", "folder", f.path, "", -1, f.alias, parent);
}

bool FolderTree::ShownFolderPath(const fs::path& folder, const std::string& name,
                                 std::string& path) {
    const fs::path entry = folder / name;
    std::error_code ec;
    if (!fs::exists(entry, ec) || gDottedFI(name) || !IsDirectory(entry)) return false;
    if (IsPackageName(name) || !MakeListDisp(name)) return false;
    // A link gives way to its target: the row carries the target's path and name.
    if (fs::is_symlink(fs::symlink_status(entry, ec))) {
        const fs::path target = fs::canonical(entry, ec);
        if (ec) return false;
        path = target.string();
    } else {
        path = entry.string();
    }
    return true;
}

bool FolderTree::MakeListDisp(std::string_view name) {
    static constexpr std::array<std::string_view, 7> kHidden = {
        "Desktop Folder", "Trash", "automount", "Network", "var", "etc", "tmp"};
    return std::find(kHidden.begin(), kHidden.end(), name) == kHidden.end();
}

std::vector<std::string> FolderTree::SortFItem(const fs::path& folder) {
    std::vector<std::string> names;
    ForEachEntry(folder, [&](std::string_view name, unsigned char) {
        names.emplace_back(name);
        return names.size() < kMaxChildren;
    });
    std::sort(names.begin(), names.end());
    return names;
}

bool FolderTree::HasSubFolder(const std::string& path) {
    bool found = false;
    ForEachEntry(path, [&](std::string_view name, unsigned char type) {
        // readdir's type spares a stat for plain files; links and unknown types need one.
        if (type == DT_REG || gDottedFI(name) || IsPackageName(name)) return true;
        found = type == DT_DIR || IsDirectory(fs::path(path) / name);
        return !found;
    });
    return found;
}

std::string FolderTree::HasExifFile(const std::string& path, const FolderTreeOptions& options) {
    if (!options.markExif || path.empty()) return "false";
    ExifReader reader;
    reader.NoThumb = options.noThumb;
    reader.ReadAllTags = false;
    reader.Orientation = false;
    bool found = false;
    ForEachEntry(path, [&](std::string_view name, unsigned char type) {
        if (type == DT_DIR || !options.filter.Accepts(name)) return true;
        reader.fitem = fs::path(path) / name;
        reader.GetThumbNail();
        found = reader.ret;
        return !found;
    });
    return gConvBS(found, true);
}

int FolderTree::InsertVolumeRow(const std::string& path) {
    for (std::size_t i = dataArray_.size(); i-- > 1;) {
        if (dataArray_[i]->vofo != "volume") continue;
        const int at = static_cast<int>(i) + 1;
        AddRowDictionary(dataArray_, "item", "volume", path, "", at, false);
        return at;
    }
    return -1;
}

int FolderTree::TopIndexOfPath(const std::string& path) const {
    for (std::size_t i = 1; i < dataArray_.size(); ++i)
        if (dataArray_[i]->path == path) return static_cast<int>(i);
    return -1;
}

std::unique_ptr<RowRecord> FolderTree::RemoveRowOfPath(const std::string& path, int& index) {
    index = TopIndexOfPath(path);
    if (index < 0) return nullptr;
    std::unique_ptr<RowRecord> row = std::move(dataArray_[static_cast<std::size_t>(index)]);
    dataArray_.erase(dataArray_.begin() + index);
    Forget(*row);
    cameraWon_ = camera_.Drop(path);
    return row;
}

}  // namespace lumivex
