#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "model/CommandState.h"
#include "model/ContextMenuItems.h"

namespace lumivex {
namespace {

// The enabled commands as a string of 0 and 1 in tag order 601 to 606.
std::string Bits(const CommandState& commands) {
    std::string bits;
    for (int tag = 601; tag <= 606; ++tag)
        bits += commands.Enabled(tag) ? '1' : '0';
    return bits;
}

TEST(CommandStateTest, SelectionStatesSetTheirCommandsAndOthersLeaveThem) {
    const struct {
        int state;
        bool before;
        const char* after;
    } cases[] = {{0, true, "000000"},
                 {1, false, "101110"},
                 {2, false, "101100"},
                 {3, true, "101110"},
                 {3, false, "000000"}};  // other states: no change
    for (const auto& c : cases) {
        CommandState commands;
        for (int tag : {601, 603, 604, 605})
            commands.ToolbarItemEnableSet(tag, c.before);
        commands.SetBtnStat(c.state, false, nullptr);
        EXPECT_EQ(Bits(commands), c.after) << c.state << c.before;
    }
}

TEST(CommandStateTest, GoogleEarthAsksOnlyWhenAllowedAndEverySetIsHeard) {
    CommandState commands;
    std::vector<std::pair<int, bool>> heard;
    commands.AddListener([&heard](int tag, bool on) { heard.emplace_back(tag, on); });
    std::vector<int> asked;
    const auto gps = [&asked](int state) {
        asked.push_back(state);
        return state == 1;
    };
    std::string seen;
    for (const auto& [state, allowed] : {std::pair{1, true}, {2, true}, {1, true}, {1, false}}) {
        commands.SetBtnStat(state, allowed, gps);
        seen += Bits(commands).back();
    }
    EXPECT_EQ(seen, "1010");
    EXPECT_EQ(asked, (std::vector<int>{1, 2, 1}));  // not allowed: the file is not read

    heard.clear();
    commands.SetBtnStatAll(true);
    commands.SetBtnStat(0, false, nullptr);  // changed or not
    EXPECT_EQ(
        heard,
        (std::vector<std::pair<int, bool>>{
            {602, true}, {601, false}, {603, false}, {604, false}, {605, false}, {606, false}}));
}

TEST(ContextMenuItemsTest, ItemsFollowTheSelectionState) {
    const auto joined = [](int flag, bool gps) {
        std::string all;
        for (const std::string& text : ContextMenuItems(flag, gps))
            all += text + "|";
        return all;
    };
    const std::string several =
        "exif形式で書き出し...|非圧縮jpegで書き出し...|"
        "形式を指定して書き出し...|-|左に回転|右に回転|";
    const std::string one = several + "-|クリップボードにコピー|-|Exif情報|";
    EXPECT_EQ(joined(0, true), "");
    EXPECT_EQ(joined(1, false), one);
    EXPECT_EQ(joined(1, true), one + "Google Earthを起動|");
    EXPECT_EQ(joined(2, true), several);
}

}  // namespace
}  // namespace lumivex
