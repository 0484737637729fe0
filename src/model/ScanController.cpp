#include "model/ScanController.h"

#include <utility>

namespace lumivex {

// A folder on a mount that no longer answers counts as gone: the click is dropped rather than
// the window frozen.
bool ScanController::IsFolder(const std::string& path) {
    return probe_.IsFolder(path).value_or(false);
}

void ScanController::SetLabels(TextWidth width, bool fullNames) {
    textWidth_ = std::move(width);
    fullNames_ = fullNames;
    for (ItemRecord& item : items_) {
        Measure(item);
        item.compact = GridLayout::LabelCut(item);
    }
}

bool ScanController::Begin(const std::string& path, int width, bool running) {
    if (running || exporting_ || path.empty() || !IsFolder(path)) return false;
    folderScan_ = true;
    width_ = width;
    dropRest_ = false;
    Empty();
    return true;
}

ScanController::RowStep ScanController::Choose(int row, const std::string& path, bool running,
                                               bool autoSelecting) {
    if (exporting_) {
        if (row < 0) {
            pending_.clear();
            emptyDue_ = true;
        } else if (autoSelecting) {
            pending_ = path;
            emptyDue_ = false;
        }
        return RowStep::Keep;
    }
    if (row < 0) {
        pending_.clear();
        return RowStep::Clear;
    }
    if (running && folderScan_ && (autoSelecting || !pending_.empty())) {
        pending_ = path;
        return RowStep::Clear;
    }
    return RowStep::Start;
}

bool ScanController::Clear(bool running) {
    if (running) dropRest_ = true;
    Empty();
    return running;
}

bool ScanController::Take(std::vector<ScanItem> ready, int visibleBottom) {
    if (dropRest_) return false;
    bool visible = false;
    for (ScanItem& scanned : ready) {
        ItemRecord item = ItemRecord::FromScan(std::move(scanned));
        Measure(item);
        Place(item);
        visible = visible || item.y < visibleBottom;
        items_.push_back(std::move(item));
    }
    return visible;
}

std::string ScanController::TakePending() {
    return std::exchange(pending_, {});
}

bool ScanController::Settle(int width) {
    if (!folderScan_) return false;
    if (width != width_ || flowDue_) {
        width_ = width;
        Flow();
    }
    return true;
}

bool ScanController::Reflow(int width, bool running) {
    if (running && folderScan_) {
        flowDue_ = true;
        return false;
    }
    width_ = width;
    Flow();
    return true;
}

bool ScanController::BeginExport(bool running) {
    if (running || exporting_) return false;
    exporting_ = true;
    emptyDue_ = false;
    folderScan_ = false;
    return true;
}

ScanController::RowStep ScanController::EndExport(std::string& next) {
    exporting_ = false;
    next = TakePending();
    if (!next.empty()) return RowStep::Start;
    return std::exchange(emptyDue_, false) ? RowStep::Clear : RowStep::Keep;
}

void ScanController::Empty() {
    layout_.InitCanvas();
    layout_.pYmax = 0;
    items_.clear();
    pictures_.Clear();  // the cache is keyed by place in the list
}

void ScanController::Place(ItemRecord& item) {
    layout_.SetItemPos(item, width_);
    item.compact = GridLayout::LabelCut(item);
}

void ScanController::Measure(ItemRecord& item) const {
    item.labelWidth = textWidth_ ? textWidth_(item.Label(fullNames_)) : 0;
}

void ScanController::Flow() {
    flowDue_ = false;
    layout_.InitCanvas();
    layout_.pYmax = 0;
    for (ItemRecord& item : items_)
        Place(item);
}

}  // namespace lumivex
