#pragma once
// The data of the sidebar: the "デスクトップ" group row, one row per listed volume and one per
// folder on the Desktop, all siblings at the top level. Rows below load when first asked for;
// what is hidden and which folders hold pictures is decided here. A card's folders are read by
// questions that the tree puts (TakeQuestions) and whose answers it takes back (Apply), so the
// reading can run anywhere; Settle answers them at once. No Qt.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/CameraSearch.h"
#include "model/FolderLister.h"
#include "model/FolderQuestion.h"
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

    // Told of each change an answer makes, so that a view can announce it.
    class Edits {
      public:
        virtual ~Edits() = default;
        virtual void WillAddChildren(RowRecord& /*parent*/, int /*count*/) {}
        virtual void DidAddChildren(RowRecord& /*parent*/) {}
        virtual void Marked(RowRecord& /*row*/) {}
    };
    // The rows camera media was found on, loaded and ready to be opened and selected.
    struct CameraRows {
        RowRecord* volume;
        RowRecord* dcim;
        RowRecord* folder;
    };

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
    // Appends a row for each shown subfolder of `folder`, in name order, reading it now.
    void MakeList(Rows& array, const std::filesystem::path& folder, RowRecord* parent = nullptr);
    // Asks for the rows below `item` once, unless they are there.
    void AskChildren(RowRecord& item);
    // Asks each volume row whether it holds camera media; a new search replaces an earlier one.
    void AskCamera();
    // The questions put since the last call, oldest first.
    std::vector<FolderQuestion> TakeQuestions();
    // Takes an answer in. One for a row that has gone, or from before a rebuild, changes
    // nothing. A camera search's winning answer loads its rows and returns them.
    std::optional<CameraRows> Apply(const FolderAnswer& answer, Edits& edits);
    // The camera find that waited for a volume that has since been removed; its rows loaded.
    std::optional<CameraRows> TakeCameraWin(Edits& edits);
    // Answers every question now through `lister`, until none is left; the last camera find.
    std::optional<CameraRows> Settle(const FolderLister& lister = FolderLister());
    // The row with `serial`, while it is in the tree.
    RowRecord* Find(std::uint64_t serial) const;
    // The lane of the questions about `row`: its volume's while the volume is listed (a card
    // mounted again at the same place gets a new one); the Desktop's rows share one.
    static std::string LaneOf(const RowRecord& row);
    // The tree's build: questions of an earlier one need no answer.
    std::uint64_t Round() const { return round_; }

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
    static std::string HasExifFile(const std::string& path, const FolderTreeOptions& options);

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
    void Ask(FolderQuestion::Kind kind, const RowRecord& row);

    void AdoptChildren(RowRecord& row, const std::vector<ShownFolder>& folders, Edits& edits);
    void ApplyMarks(const FolderAnswer& answer, Edits& edits);
    std::optional<CameraRows> OpenCamera(const FolderAnswer& won, Edits& edits);
    RowRecord* ChildOfPath(RowRecord& row, const std::string& path) const;
    void Forget(const RowRecord& row);
    void Clear();

    FolderTreeOptions options_;
    Rows dataArray_;
    std::unordered_map<std::uint64_t, RowRecord*> live_;  // every row in the tree, by serial
    std::uint64_t nextSerial_ = 1;
    std::uint64_t round_ = 1;
    std::vector<FolderQuestion> outbox_;
    CameraSearch camera_;
    std::optional<FolderAnswer> cameraWon_;  // decided by a removal, not yet opened
};

}  // namespace lumivex
