#pragma once
// The toolbar's item table and the rules for item lists: the default set, the allowed items,
// and the cleaning of a saved list. Items are known by identifier in lists and by tag to the
// commands; the two spaces have identifiers but no tag. Qt-free.
#include <optional>
#include <string>
#include <vector>

namespace lumivex {

struct ToolbarItemRow {
    int tag;
    const char* identifier;
    const char* label;
    const char* toolTip;
    // The freedesktop icon name; the program's own drawing of the same name stands behind it.
    const char* iconName;
};

class ToolbarItems {
  public:
    static constexpr const char* kSpace = "NSToolbarSpaceItem";
    static constexpr const char* kFlexibleSpace = "NSToolbarFlexibleSpaceItem";
    static constexpr int kExport = 601;

    // The eight command items, in tag order.
    static const std::vector<ToolbarItemRow>& Table();
    static const ToolbarItemRow* FindTag(int tag);
    static const ToolbarItemRow* FindIdentifier(const std::string& identifier);
    static bool IsSpace(const std::string& identifier);
    static bool IsKnown(const std::string& identifier);

    static std::vector<std::string> DefaultItemIdentifiers();
    static std::vector<std::string> AllowedItemIdentifiers();

    // A saved list made fit to use: unknown identifiers and second copies of a command item
    // are dropped (spaces may repeat). Nothing saved, or a list of which nothing usable is
    // left, gives the default set; a list saved empty stays empty.
    static std::vector<std::string> CleanSavedList(
        const std::optional<std::vector<std::string>>& saved);

    // The toolbar item whose enabled state a menu entry follows: the export pop-up's entries
    // 101 to 103 and their overflow forms 901 to 903 follow 601; a toolbar tag itself.
    static int ButtonTagFor(int menuTag);
};

}  // namespace lumivex
