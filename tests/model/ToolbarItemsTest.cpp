#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "model/ToolbarItemList.h"
#include "model/ToolbarItems.h"

namespace lumivex {
namespace {

using List = std::vector<std::string>;

// A list written as tags, "_" for a space and "~" for the flexible space, "?" for garbage.
List Ids(const std::vector<std::string>& shorthand) {
    List ids;
    for (const std::string& s : shorthand)
        ids.emplace_back(s == "_"   ? ToolbarItems::kSpace
                         : s == "~" ? ToolbarItems::kFlexibleSpace
                         : s == "?" ? "Some Other Toolbar Item"
                                    : ToolbarItems::FindTag(std::stoi(s))->identifier);
    return ids;
}

TEST(ToolbarItemsTest, SavedListsAreCleanedOrReplacedByTheDefaultSet) {
    const List defaults = ToolbarItems::DefaultItemIdentifiers();
    const struct {
        const char* what;
        std::optional<List> saved;
        List expected;
    } cases[] = {
        {"nothing saved", std::nullopt, defaults},
        {"saved empty", List{}, List{}},
        {"good list", Ids({"610", "_", "601"}), Ids({"610", "_", "601"})},
        {"unknown dropped", Ids({"?", "603", "?"}), Ids({"603"})},
        {"second copy dropped", Ids({"604", "_", "604", "_"}), Ids({"604", "_", "_"})},
        {"only garbage", Ids({"?", "?"}), defaults},
        {"only spaces left", Ids({"?", "_", "~"}), defaults},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ToolbarItems::CleanSavedList(c.saved), c.expected) << c.what;
}

TEST(ToolbarItemsTest, MenuEntriesFollowTheExportButton) {
    for (int tag : {101, 102, 103, 901, 902, 903})
        EXPECT_EQ(ToolbarItems::ButtonTagFor(tag), 601) << tag;
    for (int tag : {602, 605, 610, 100, 104, 900, 904})
        EXPECT_EQ(ToolbarItems::ButtonTagFor(tag), tag) << tag;
}

// The common edits are made through the customising dialog; these are the ends it cannot reach.
TEST(ToolbarItemListTest, EditsKeepCommandItemsSingle) {
    const struct {
        const char* what;
        void (*edit)(ToolbarItemList&);
        List expected;
    } cases[] = {
        {"add past the end", [](ToolbarItemList& l) { l.Add(Ids({"610"})[0], 99); },
         Ids({"601", "602", "603", "610"})},
        {"add present moves it back", [](ToolbarItemList& l) { l.Add(Ids({"601"})[0], 2); },
         Ids({"602", "601", "603"})},
        {"spaces repeat",
         [](ToolbarItemList& l) { l.Add(ToolbarItems::kSpace, 1), l.Add(ToolbarItems::kSpace, 1); },
         Ids({"601", "_", "_", "602", "603"})},
        {"unknown ignored", [](ToolbarItemList& l) { l.Add("Nope", 0); },
         Ids({"601", "602", "603"})},
        {"remove", [](ToolbarItemList& l) { l.Remove(1), l.Remove(7); }, Ids({"601", "603"})},
        {"move to end", [](ToolbarItemList& l) { l.Move(0, 9); }, Ids({"602", "603", "601"})},
    };
    for (const auto& c : cases) {
        ToolbarItemList list(Ids({"601", "602", "603"}));
        c.edit(list);
        EXPECT_EQ(list.Items(), c.expected) << c.what;
    }
}

}  // namespace
}  // namespace lumivex
