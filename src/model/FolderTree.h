#pragma once
// The data of the sidebar: the "デスクトップ" group row, one row per listed volume and one per
// folder on the Desktop, all siblings at the top level. Rows below load when first asked for;
// what is hidden and which folders hold pictures is decided here. No Qt.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "model/FolderTreeOptions.h"
#include "model/RowRecord.h"

namespace lumivex {

class FolderTree {
  public:
    using Rows = RowRecord::Rows;

    // The header text of the group row.
    static constexpr std::string_view kGroupTitle = "デスクトップ";
    // A folder with more entries than this is listed by its first ones only (in name order of
    // those read): a bound on what one row may cost to open.
    static constexpr std::size_t kMaxChildren = 100000;

    explicit FolderTree(FolderTreeOptions options = {});

    void SetOptions(FolderTreeOptions options) { options_ = std::move(options); }
    const FolderTreeOptions& Options() const { return options_; }

    // Builds the whole tree anew from the live volume list; every loaded row goes.
    void MakeTable();
    // The same with a given list of volume mount paths.
    void MakeTable(const std::vector<std::string>& volumes);
    // One row per entry of the volume list.
    void MakeListVol();

    // Makes one row and puts it at `insertAt` (negative: at the end). Returns it.
    RowRecord& AddRowDictionary(Rows& array, std::string_view kind, std::string_view vofo,
                                const std::string& path, std::string_view exif, int insertAt,
                                bool alias, RowRecord* parent = nullptr);
    // Appends a row for each shown subfolder of `folder`, in name order.
    void MakeList(Rows& array, const std::filesystem::path& folder, RowRecord* parent = nullptr);
    // The rows below `item`, made now (without storing them) for a caller that must announce
    // them before they are stored.
    Rows MakeChildren(RowRecord& item);
    // The rows below `item`, loaded on the first call and kept.
    Rows& GetChild(RowRecord& item);

    // True when the entry `name` of `folder` is shown as a folder row; `path` is then the path
    // its row carries (a link's target).
    static bool ShownFolderPath(const std::filesystem::path& folder, const std::string& name,
                                std::string& path);
    // False for a name that is never a row, at any depth.
    static bool MakeListDisp(std::string_view name);
    // The names of the entries of `folder` in ascending order (at most kMaxChildren).
    static std::vector<std::string> SortFItem(const std::filesystem::path& folder);
    // True when `path` holds at least one folder that could be a row by its kind (names hidden
    // by MakeListDisp count). Stops at the first.
    static bool HasSubFolder(const std::string& path);
    // "true" when a file directly in `path` is a picture with a thumbnail, else "false".
    // Only names that pass the settings' extension groups (gChkGx's test) are read, and only
    // their heads; the first hit ends the walk.
    std::string HasExifFile(const std::string& path) const;

    Rows& DataArray() { return dataArray_; }
    const Rows& DataArray() const { return dataArray_; }

    // Mount events: a new volume row goes right after the last volume row; returns its index,
    // or -1 (nothing inserted) when there is no volume row.
    int InsertVolumeRow(const std::string& path);
    // The index of the top-level row whose "path" is `path` (index 1 up); -1 when none.
    int TopIndexOfPath(const std::string& path) const;
    // Removes the top-level row whose "path" is `path` (index 1 up) and hands it back, with
    // its index in `index`; nullptr and -1 when there is none.
    std::unique_ptr<RowRecord> RemoveRowOfPath(const std::string& path, int& index);

  private:
    std::string DisplayName(std::string_view vofo, const std::string& path) const;

    FolderTreeOptions options_;
    Rows dataArray_;
};

}  // namespace lumivex
