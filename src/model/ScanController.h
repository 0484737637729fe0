#pragma once
// The steps of reading a folder into the grid, decided without Qt: when a scan starts or is
// refused, what a sidebar selection does while one runs, what happens to items of a scan the
// user left, and how arriving items are placed. The worker's other job, the export of every
// item, passes through here too, so that a selection cannot pull the list from under it and
// its end is never taken for a scan's. The window owns the worker and the widgets and does
// what it is told here; the items and their layout live here.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "model/GridLayout.h"
#include "model/ItemRecord.h"
#include "model/ThumbnailCache.h"
#include "platform/FolderProbe.h"
#include "scan/ScanItem.h"

namespace lumivex {

class ScanController {
  public:
    // Measures a label as the pane draws it, in pixels.
    using TextWidth = std::function<int(const std::string& label)>;
    // What a sidebar selection asks of the window.
    enum class RowStep {
        Start,  // read the folder (refused by Begin while a scan runs)
        Clear,  // empty the grid; a waiting card folder is read when the scan has stopped
        Keep,   // nothing now: an export reads the list; a card folder waits for its end
    };

    // How labels are measured and whether they keep their extension; every item present is
    // measured again.
    void SetLabels(TextWidth width, bool fullNames);

    // A scan of `path` for a pane `width` pixels wide: false, with nothing changed, while a
    // scan runs or when `path` is no folder. Otherwise the grid is emptied for it.
    bool Begin(const std::string& path, int width, bool running);
    // A sidebar row was selected (`row` < 0: the selection ended). A card folder selected by
    // the card search wins over the folder being read; so does any selection made while the
    // scan is already giving way. Other selections during a scan are refused by Begin.
    RowStep Choose(int row, const std::string& path, bool running, bool autoSelecting);
    // The grid emptied. True when the running scan must be stopped: what it still hands over
    // belongs to a folder no longer shown and is dropped.
    bool Clear(bool running);
    // Items handed over by the worker: placed and appended, unless their scan was abandoned.
    // True when one of them starts above `visibleBottom` (content coordinates).
    bool Take(std::vector<ScanItem> ready, int visibleBottom);
    // After the worker ended: the folder waiting to be read next, taken; "" when none.
    std::string TakePending();
    // After a folder scan ended with none waiting: the items flowed again when the pane was
    // resized or an item turned during the scan. False when the ended job was no folder scan.
    bool Settle(int width);
    // A resize or a turn: every item flowed again at `width`. False (held back until the
    // scan's end) while a scan runs; an export leaves the list as it is, so it flows at once.
    bool Reflow(int width, bool running);

    // The export of every item is to start on the worker: false while a job runs or an export
    // is already under way. Until EndExport no scan starts and no selection empties the grid.
    bool BeginExport(bool running);
    // The export has ended or was never started: what the sidebar asked for meanwhile. Start
    // with `next` set to the card folder that waited; Clear when the selection ended (a pulled
    // card); Keep when nothing happened.
    RowStep EndExport(std::string& next);
    bool Exporting() const { return exporting_; }

    std::vector<ItemRecord>& Items() { return items_; }
    const std::vector<ItemRecord>& Items() const { return items_; }
    const GridLayout& Layout() const { return layout_; }
    // The decoded pictures of the items, for the painter; emptied with the grid.
    ThumbnailCache& Pictures() { return pictures_; }
    bool Pending() const { return !pending_.empty(); }
    // How Begin asks whether the chosen folder still exists; tests give a probe of their own.
    void SetFolderProbe(FolderProbe probe) { probe_ = std::move(probe); }

  private:
    bool IsFolder(const std::string& path);
    void Empty();
    void Place(ItemRecord& item);
    void Measure(ItemRecord& item) const;
    void Flow();

    std::vector<ItemRecord> items_;
    GridLayout layout_;
    ThumbnailCache pictures_;
    FolderProbe probe_;
    TextWidth textWidth_;
    bool fullNames_ = false;
    int width_ = 0;            // the pane width the items are placed for
    bool folderScan_ = false;  // the last job started was a folder scan
    bool dropRest_ = false;    // the grid was emptied while the worker ran
    bool exporting_ = false;   // the worker exports the list
    bool emptyDue_ = false;    // the selection ended during the export
    bool flowDue_ = false;     // a re-flow was held back by the running scan
    std::string pending_;      // a card folder to read once the stopped scan has ended
};

}  // namespace lumivex
