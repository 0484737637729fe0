#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "browser/CommandState.h"
#include "browser/ContextMenuItems.h"

namespace lumivex {
namespace {

constexpr int kSelectionTags[] = {601, 603, 604, 605};

struct StatCase {
    int state;
    bool before;              // every tag's state before the call
    std::vector<bool> after;  // 601, 603, 604, 605
};

class SetBtnStatTest : public ::testing::TestWithParam<StatCase> {};

TEST_P(SetBtnStatTest, SetsTheSelectionCommands) {
    const StatCase& c = GetParam();
    CommandState commands;
    for (int tag : kSelectionTags)
        commands.ToolbarItemEnableSet(tag, c.before);
    commands.ToolbarItemEnableSet(CommandState::kExportAll, true);
    commands.SetBtnStat(c.state, false, nullptr);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(commands.Enabled(kSelectionTags[i]), c.after[i]) << "tag " << kSelectionTags[i];
    }
    EXPECT_TRUE(commands.Enabled(CommandState::kExportAll));  // not the selection's
}

INSTANTIATE_TEST_SUITE_P(States, SetBtnStatTest,
                         ::testing::Values(StatCase{0, true, {false, false, false, false}},
                                           StatCase{1, false, {true, true, true, true}},
                                           StatCase{2, false, {true, true, true, false}},
                                           // Other states leave the four as they were.
                                           StatCase{3, true, {true, true, true, true}},
                                           StatCase{3, false, {false, false, false, false}}));

TEST(CommandStateTest, GoogleEarthFollowsTheProbeOnlyWhenAllowed) {
    std::vector<int> asked;
    const auto probe = [&asked](bool answer) {
        return [&asked, answer](int state) {
            asked.push_back(state);
            return answer;
        };
    };
    CommandState commands;
    commands.SetBtnStat(1, true, probe(true));
    EXPECT_TRUE(commands.Enabled(CommandState::kGoogleEarth));
    commands.SetBtnStat(2, true, probe(false));
    EXPECT_FALSE(commands.Enabled(CommandState::kGoogleEarth));
    commands.SetBtnStat(1, true, probe(true));
    commands.SetBtnStat(1, false, probe(true));
    EXPECT_FALSE(commands.Enabled(CommandState::kGoogleEarth));
    // Not allowed: the file is not read at all.
    EXPECT_EQ(asked, (std::vector<int>{1, 2, 1}));
    commands.SetBtnStat(1, true, nullptr);
    EXPECT_FALSE(commands.Enabled(CommandState::kGoogleEarth));
}

TEST(CommandStateTest, ListenersHearEverySetAndExportAllAlone) {
    CommandState commands;
    std::vector<std::pair<int, bool>> heard;
    commands.AddListener([&heard](int tag, bool on) { heard.emplace_back(tag, on); });
    commands.SetBtnStat(0, false, nullptr);
    EXPECT_EQ(heard, (std::vector<std::pair<int, bool>>{
                         {601, false}, {603, false}, {604, false}, {605, false}, {606, false}}));
    heard.clear();
    commands.SetBtnStatAll(true);
    EXPECT_EQ(heard, (std::vector<std::pair<int, bool>>{{602, true}}));
    EXPECT_TRUE(commands.Enabled(CommandState::kExportAll));
    EXPECT_FALSE(commands.Enabled(CommandState::kExportMenu));
}

TEST(ContextMenuItemsTest, ItemsFollowTheSelectionState) {
    const std::vector<std::string> several{"exif形式で書き出し...",
                                           "非圧縮jpegで書き出し...",
                                           "形式を指定して書き出し...",
                                           "-",
                                           "左に回転",
                                           "右に回転"};
    std::vector<std::string> one = several;
    one.insert(one.end(), {"-", "クリップボードにコピー", "-", "Exif情報"});
    std::vector<std::string> oneWithGps = one;
    oneWithGps.push_back("Google Earthを起動");

    EXPECT_TRUE(ContextMenuItems(0, true).empty());
    EXPECT_EQ(ContextMenuItems(1, false), one);
    EXPECT_EQ(ContextMenuItems(1, true), oneWithGps);
    EXPECT_EQ(ContextMenuItems(2, false), several);
    EXPECT_EQ(ContextMenuItems(2, true), several);
}

}  // namespace
}  // namespace lumivex
