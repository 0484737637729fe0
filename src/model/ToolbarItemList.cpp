#include "model/ToolbarItemList.h"

#include <algorithm>
#include <utility>

#include "model/ToolbarItems.h"

namespace lumivex {

namespace {
int Clamp(int value, int high) {
    return std::clamp(value, 0, std::max(0, high));
}
}  // namespace

ToolbarItemList::ToolbarItemList(std::vector<std::string> items)
    : items_(ToolbarItems::CleanSavedList(std::move(items))) {}

int ToolbarItemList::Add(const std::string& identifier, int at) {
    if (!ToolbarItems::IsKnown(identifier)) return -1;
    if (!ToolbarItems::IsSpace(identifier)) {
        const auto it = std::find(items_.begin(), items_.end(), identifier);
        if (it != items_.end()) {
            const int from = static_cast<int>(it - items_.begin());
            // The place was counted with the old copy still in the list.
            return Move(from, at > from ? at - 1 : at);
        }
    }
    at = Clamp(at, static_cast<int>(items_.size()));
    items_.insert(items_.begin() + at, identifier);
    return at;
}

void ToolbarItemList::Remove(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) return;
    items_.erase(items_.begin() + index);
}

int ToolbarItemList::Move(int from, int to) {
    const int last = static_cast<int>(items_.size()) - 1;
    if (from < 0 || from > last) return -1;
    to = Clamp(to, last);
    std::string item = std::move(items_[from]);
    items_.erase(items_.begin() + from);
    items_.insert(items_.begin() + to, std::move(item));
    return to;
}

void ToolbarItemList::ResetToDefault() {
    items_ = ToolbarItems::DefaultItemIdentifiers();
}

}  // namespace lumivex
