// The program's arguments: what each asks for, and the message for what cannot be acted on.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ScratchDir.h"
#include "app/CommandLine.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
using Action = CommandLine::Action;

TEST(CommandLineTest, SaysWhatEachArgumentAsksFor) {
    fixtures::ScratchDir scratch;
    const std::string dir = scratch.path().string();
    const std::string dir2 = (scratch.path() / "second").string();
    const std::string file = (scratch.path() / "IMG_0001.JPG").string();
    const std::string gone = (scratch.path() / "gone").string();
    fs::create_directories(dir2);
    std::ofstream(file) << "x";

    struct Case {
        std::vector<std::string> args;
        Action action;
        std::vector<std::string> folders;
        std::string error;  // a part of the message
    };
    const Case cases[] = {
        // clang-format off
        {{}, Action::Browse, {}, ""}, {{dir}, Action::Extract, {dir}, ""},
        {{dir, dir2}, Action::Extract, {dir, dir2}, ""}, {{"--help"}, Action::Help, {}, ""},
        {{"-h", dir}, Action::Help, {}, ""},
        {{"--bogus", "--version"}, Action::Version, {}, ""},  // it answers whatever else
        {{"--", "--version"}, Action::Error, {}, "「--version」が見つかりません"},
        {{file}, Action::Error, {}, "はフォルダではありません"},
        {{dir, gone}, Action::Error, {}, "「" + gone + "」が見つかりません"},
        {{"--target", dir}, Action::Error, {}, "「--target」は使えないオプションです"},
        {{""}, Action::Error, {}, "が見つかりません"},
        // clang-format on
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        const CommandLine r = CommandLine::Parse(c.args);
        EXPECT_EQ(r.action, c.action);
        EXPECT_EQ(r.folders, std::vector<fs::path>(c.folders.begin(), c.folders.end()));
        if (c.error.empty())
            EXPECT_EQ(r.error, "");
        else
            EXPECT_NE(r.error.find(c.error), std::string::npos) << r.error;
    }
}

}  // namespace
}  // namespace lumivex
