// The arguments of a command: what is accepted, and what gives the usage line.
#include <gtest/gtest.h>

#include <cstdio>

#include "CommandOutput.h"
#include "cli/CommandLine.h"

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
        {{"card"}, true, "", "card"},
        {{"--raw", "--out", "x", "card"}, true, "x", "card"},
        {{"--out", "x", "--out", "y", "card"}, true, "y", "card"},
        {{"--", "--raw"}, true, "", "--raw"},
        {{"-"}, true, "", "-"},
        {{}, false, "", ""},
        {{"a", "b"}, false, "", ""},
        {{"--verbose"}, false, "", ""},
        {{"card", "--out"}, false, "", ""},
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

}  // namespace
}  // namespace lumivex::test
