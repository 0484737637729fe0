#include <gtest/gtest.h>

#include <QFile>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdlib>
#include <memory>

#include "model/CommandState.h"
#include "model/ToolbarItems.h"
#include "shell/MainToolBar.h"

namespace lumivex {
namespace {

std::vector<std::string> AllItems() {
    return ToolbarItems::AllowedItemIdentifiers();
}

// Each case has its own configuration folder, as the program's users have theirs.
class MainToolBarTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        ::setenv("XDG_CONFIG_HOME", dir.path().toUtf8().constData(), 1);
    }
    std::unique_ptr<MainToolBar> Make(QWidget* parent = nullptr) {
        return std::make_unique<MainToolBar>(commands, ToolbarConfig(), parent);
    }

    QTemporaryDir dir;
    CommandState commands;
};

TEST_F(MainToolBarTest, EachItemSendsItsTagAndThePopUpItsMode) {
    auto bar = Make();
    bar->SetItems(AllItems());
    QSignalSpy clicked(bar.get(), &MainToolBar::ToolbarItemClicked);
    QSignalSpy chosen(bar.get(), &MainToolBar::ExportModeChosen);
    for (int tag : {602, 603, 604, 605, 606, 609, 610}) {
        QToolButton* button = bar->ToolbarItemGetButton(tag);
        ASSERT_NE(button, nullptr) << tag;
        QTest::mouseClick(button, Qt::LeftButton);
        ASSERT_EQ(clicked.size(), 1) << tag;
        EXPECT_EQ(clicked.takeFirst().at(0).toInt(), tag);
    }
    QToolButton* exportButton = bar->ToolbarItemGetButton(601);
    ASSERT_NE(exportButton, nullptr);
    EXPECT_EQ(exportButton->popupMode(), QToolButton::InstantPopup);
    const QList<QAction*> entries = bar->ExportMenu()->actions();
    ASSERT_EQ(entries.size(), 3);
    for (int mode = 0; mode < 3; ++mode) {
        entries[mode]->trigger();
        ASSERT_EQ(chosen.size(), 1) << mode;
        EXPECT_EQ(chosen.takeFirst().at(0).toInt(), mode);
    }
    EXPECT_TRUE(clicked.isEmpty());
}

// Which tags the command state turns on is its own test's, and the menu bar's test sees an
// item off the toolbar turn its menu items off; here, what the pop-up's entries ask.
TEST_F(MainToolBarTest, ThePopUpsEntriesFollowItsButton) {
    auto bar = Make();
    commands.SetBtnStat(1, false, nullptr);
    EXPECT_TRUE(bar->ToolbarMenuAppeared(902));
    // The state outlives the toolbar.
    bar.reset();
    commands.SetBtnStat(1, false, nullptr);
}

TEST_F(MainToolBarTest, ItemsAndShownStateSurviveARestart) {
    const std::vector<std::string> chosen = {ToolbarItems::FindTag(610)->identifier,
                                             ToolbarItems::kSpace,
                                             ToolbarItems::FindTag(601)->identifier};
    const struct {
        std::vector<std::string> items;
        bool shown;
    } cases[] = {{chosen, false}, {{}, true}, {ToolbarItems::DefaultItemIdentifiers(), false}};
    for (const auto& c : cases) {
        auto bar = Make();
        bar->SetItems(c.items);
        bar->SetToolbarVisible(c.shown);
        bar.reset();
        QWidget host;
        bar = Make(&host);
        EXPECT_EQ(bar->Items(), c.items);
        EXPECT_EQ(bar->GetToolbarVisible(), c.shown);
        EXPECT_EQ(bar->isVisibleTo(&host), c.shown);
        EXPECT_EQ(bar->actions().size(), static_cast<qsizetype>(c.items.size()));
        bar.reset();
    }
    EXPECT_TRUE(QFile::exists(dir.filePath("com.ZenmoraWorksJP.LumivexPlus.conf")));
}

TEST_F(MainToolBarTest, ItemsThatDoNotFitGoToTheExtensionMenu) {
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto bar = Make();
    layout->addWidget(bar.get());
    layout->addStretch();
    window.resize(60, 120);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    auto* extension = bar->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    ASSERT_NE(extension, nullptr);
    ASSERT_TRUE(extension->isVisible());
    ASSERT_NE(extension->menu(), nullptr);
    // The items behind the first in their menu form and in order, the spaces left out.
    const auto menuTexts = [extension] {
        QStringList texts;
        for (QAction* action : extension->menu()->actions())
            texts << action->text();
        return texts.join(',');
    };
    EXPECT_EQ(menuTexts(),
              QStringLiteral("全書き出し,左回転,右回転,Exif情報,Google Earth,環境設定"));
    // The export item as a submenu of its three entries.
    bar->SetItems({ToolbarItems::FindTag(610)->identifier, ToolbarItems::kSpace,
                   ToolbarItems::FindTag(601)->identifier});
    QTest::qWait(20);
    EXPECT_EQ(menuTexts(), QStringLiteral("書き出し"));
    EXPECT_EQ(extension->menu()->actions().value(0)->menu(), bar->ExportMenu());
    window.resize(1200, 120);
    QTest::qWait(20);
    EXPECT_FALSE(extension->isVisible());
}

}  // namespace
}  // namespace lumivex
