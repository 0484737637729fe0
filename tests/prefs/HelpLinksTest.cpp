// The Help menu's openers: the files found from where the program lies, a missing read-me, and
// the home page only after the user agrees.
#include <gtest/gtest.h>

#include <fstream>

#include "../app/ScriptedPrompter.h"
#include "ScratchDir.h"
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
    const fs::path share = HelpLinks::ShareFolderOf(LUMIVEX_PROGRAM_DIR);
    HelpLinks links = Links(share);
    EXPECT_TRUE(links._HelpHelpbook_Action(nullptr));
    EXPECT_TRUE(links._HelpReadme_Action(nullptr));
    ASSERT_EQ(opened.size(), 2);
    EXPECT_TRUE(prompter.asked.isEmpty());
    for (const QUrl& u : opened)
        EXPECT_TRUE(fs::is_regular_file(u.toLocalFile().toStdString()))
            << u.toString().toStdString();
    EXPECT_TRUE(opened[0].toLocalFile().endsWith(QStringLiteral("/help/index.html")));
    EXPECT_TRUE(opened[1].toLocalFile().endsWith(QStringLiteral("/お読み下さい.html")));
}

TEST_F(HelpLinksTest, AMissingFileIsSaidAndNothingOpens) {
    fixtures::ScratchDir dir;
    fs::create_directories(dir.path() / "help");
    std::ofstream(dir.path() / "help" / "index.html") << "<html></html>";
    HelpLinks links = Links(dir.path());
    EXPECT_FALSE(links._HelpReadme_Action(nullptr));
    EXPECT_EQ(prompter.asked, QStringList{QStringLiteral("File Not Found.")});
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_TRUE(links._HelpHelpbook_Action(nullptr));
    fs::remove_all(dir.path() / "help");
    EXPECT_FALSE(links._HelpHelpbook_Action(nullptr));
    EXPECT_EQ(opened.size(), 1);
}

TEST_F(HelpLinksTest, HomePageOpensOnlyWhenTheUserAgrees) {
    HelpLinks links = Links("/nowhere");
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
