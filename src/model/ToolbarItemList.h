#pragma once
// The item list that the customisation dialog edits: what a button press or a drop does to
// it. A command item stands on the toolbar once, so adding one that is already there moves
// it; spaces are added as often as asked. Qt-free.
#include <string>
#include <vector>

namespace lumivex {

class ToolbarItemList {
  public:
    explicit ToolbarItemList(std::vector<std::string> items);

    const std::vector<std::string>& Items() const { return items_; }
    // Puts `identifier` before position `at` (clamped to the list) and gives where it stands
    // now; an unknown identifier changes nothing and gives -1.
    int Add(const std::string& identifier, int at);
    void Remove(int index);
    // Moves the item at `from` so that it stands at `to` afterwards; gives its new position.
    int Move(int from, int to);
    void ResetToDefault();

  private:
    std::vector<std::string> items_;
};

}  // namespace lumivex
