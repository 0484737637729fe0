// The Help menu's openers: the files found from where the program lies, a missing read-me, and
// the home page only after the user agrees.
#include <gtest/gtest.h>

#include "../app/ScriptedPrompter.h"
#include "prefs/HelpLinks.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

struct HelpLinksTest : ::testing::Test {
    ScriptedPrompter prompter;
    QList<QUrl> opened;
    HelpLinks Links(const fs::path& share) {
        return HelpLinks(share, prompter, [this](const QUrl& u) {
            opened << u;
            return true;
        });
    }
};

TEST_F(HelpLinksTest, HelpAndReadmeAreFoundBesideTheBuiltProgram) {
    HelpLinks links = Links(HelpLinks::ShareFolderOf(LUMIVEX_PROGRAM_DIR));
    EXPECT_TRUE(links._HelpHelpbook_Action(nullptr));
    EXPECT_TRUE(links._HelpReadme_Action(nullptr));
    ASSERT_EQ(opened.size(), 2);
    EXPECT_TRUE(opened[0].toLocalFile().endsWith(QStringLiteral("/help/index.html")));
    EXPECT_TRUE(opened[1].toLocalFile().endsWith(QStringLiteral("/お読み下さい.html")));
}

TEST_F(HelpLinksTest, AMissingFileIsSaidAndTheHomePageOpensOnlyWhenTheUserAgrees) {
    HelpLinks links = Links("/nowhere");
    EXPECT_FALSE(links._HelpReadme_Action(nullptr));
    EXPECT_EQ(prompter.asked, QStringList{QStringLiteral("File Not Found.")});
    EXPECT_TRUE(opened.isEmpty());
    const std::pair<int, bool> answers[] = {{Prompter::kCancel, false}, {Prompter::kAction, true}};
    for (const auto& [answer, opens] : answers) {
        prompter.asked.clear();
        prompter.answers = {answer};
        EXPECT_EQ(links.ConnectHP(nullptr, false), opens);
        EXPECT_EQ(prompter.asked,
                  QStringList{QStringLiteral("Lumivexのホームページに接続しますか？")});
        EXPECT_EQ(opened.size(), opens ? 1 : 0);
    }
    EXPECT_EQ(opened[0], QUrl(QString::fromLatin1(HelpLinks::kHomePage)));
}

}  // namespace
}  // namespace lumivex
