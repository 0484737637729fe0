#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "model/CommandState.h"
#include "model/ContextMenuItems.h"

namespace lumivex {
namespace {

TEST(CommandStateTest, SetBtnStatTable) {
    struct Row {
        int state;
        bool before;
        std::vector<bool> after;  // 601, 603, 604, 605
    };
    const std::vector<Row> rows{{0, true, {false, false, false, false}},
                                {1, false, {true, true, true, true}},
                                {2, false, {true, true, true, false}},
                                {3, true, {true, true, true, true}},  // other states: no change
                                {3, false, {false, false, false, false}}};
    const int tags[] = {601, 603, 604, 605};
    for (const Row& row : rows) {
        CommandState commands;
        for (int tag : tags)
            commands.ToolbarItemEnableSet(tag, row.before);
        commands.SetBtnStat(row.state, false, nullptr);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(commands.Enabled(tags[i]), row.after[i]) << row.state << " " << tags[i];
        EXPECT_FALSE(commands.Enabled(CommandState::kExportAll));
    }
}

TEST(CommandStateTest, GoogleEarthAndExportAllAndListeners) {
    CommandState commands;
    std::vector<std::pair<int, bool>> heard;
    commands.AddListener([&heard](int tag, bool on) { heard.emplace_back(tag, on); });
    std::vector<int> asked;
    const auto gps = [&asked](int state) {
        asked.push_back(state);
        return state == 1;
    };
    commands.SetBtnStat(1, true, gps);
    EXPECT_TRUE(commands.Enabled(CommandState::kGoogleEarth));
    commands.SetBtnStat(2, true, gps);
    EXPECT_FALSE(commands.Enabled(CommandState::kGoogleEarth));
    commands.SetBtnStat(1, true, gps);
    commands.SetBtnStat(1, false, gps);  // not allowed: off, and the file is not read
    EXPECT_FALSE(commands.Enabled(CommandState::kGoogleEarth));
    EXPECT_EQ(asked, (std::vector<int>{1, 2, 1}));

    heard.clear();
    commands.SetBtnStatAll(true);
    commands.SetBtnStat(0, false, nullptr);  // every set is heard, changed or not
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
        "exif形式で書き出し...|非圧縮jpegで書き出し...|形式を指定して書き出し...|-|左に回転|"
        "右に回転|";
    const std::string one = several + "-|クリップボードにコピー|-|Exif情報|";
    EXPECT_EQ(joined(0, true), "");
    EXPECT_EQ(joined(1, false), one);
    EXPECT_EQ(joined(1, true), one + "Google Earthを起動|");
    EXPECT_EQ(joined(2, true), several);
}

}  // namespace
}  // namespace lumivex
