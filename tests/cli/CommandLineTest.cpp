// The arguments of a command and of the program: what is accepted, and what gives the usage
// line.
#include <gtest/gtest.h>

#include <cstdio>

#include "CommandOutput.h"
#include "cli/CommandLine.h"
#include "cli/TopCommand.h"
#include "core/Version.h"

namespace lumivex::test {
namespace {

TEST(CommandLine, SwitchesOptionsAndOperands) {
    const CommandLine::Grammar grammar{{"--raw"}, {"--out"}, 1, 1, "lumivex thumbs ..."};
    const struct {
        std::vector<std::string> args;
        bool ok;
        const char* out;      // value of --out, "" for none
        const char* operand;  // the one operand when ok
    } cases[] = {
        // clang-format off
        {{"card"}, true, "", "card"}, {{"--raw", "--out", "x", "card"}, true, "x", "card"},
        {{"--out", "x", "--out", "y", "card"}, true, "y", "card"},
        {{"--", "--raw"}, true, "", "--raw"}, {{"-"}, true, "", "-"}, {{}, false, "", ""},
        {{"a", "b"}, false, "", ""}, {{"--verbose"}, false, "", ""},
        {{"card", "--out"}, false, "", ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::FILE* err = std::tmpfile();
        CommandLine line;
        EXPECT_EQ(line.Parse(c.args, grammar, err), c.ok) << testing::PrintToString(c.args);
        EXPECT_EQ(ReadAll(err), c.ok ? "" : "usage: lumivex thumbs ...\n");
        if (!c.ok) continue;
        EXPECT_EQ(line.Value("--out").value_or(""), c.out);
        EXPECT_EQ(line.Operands(), std::vector<std::string>{c.operand});
        EXPECT_EQ(line.Has("--raw"), c.args[0] == "--raw");
    }
}

TEST(CommandLine, ProgramSwitches) {
    const struct {
        std::vector<std::string> args;
        int status;
        std::string out;  // a piece of the output; "" for none
    } cases[] = {
        // clang-format off
        {{"--version"}, 0, std::string("lumivex ") + kVersionString + "\n"},
        {{"--help"}, 0, "  --version "}, {{"--version", "x"}, 2, ""}, {{"--verbose"}, 2, ""},
        {{"nosuch"}, 2, ""}, {{}, 2, ""},
        // clang-format on
    };
    for (const auto& c : cases) {
        std::FILE* out = std::tmpfile();
        std::FILE* err = std::tmpfile();
        EXPECT_EQ(TopCommand().Run(c.args, out, err), c.status) << testing::PrintToString(c.args);
        const std::string text = ReadAll(out);
        EXPECT_EQ(ReadAll(err).empty(), c.status == 0);
        if (c.status == 0 && c.args[0] == "--help")
            ExpectPieces(text, {c.out});
        else
            EXPECT_EQ(text, c.out);
    }
}

}  // namespace
}  // namespace lumivex::test
