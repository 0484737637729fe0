#include <gtest/gtest.h>

#include <QMainWindow>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "model/CommandState.h"
#include "model/ToolbarItems.h"
#include "shell/MainMenuBar.h"
#include "shell/MainToolBar.h"
#include "shell/MenuCommands.h"

namespace lumivex {
namespace {

// Records each handler that runs; the state comes from a real toolbar over a real
// CommandState, as the window's does.
class RecordingCommands : public MenuCommands {
  public:
    explicit RecordingCommands(MainToolBar& bar) : bar_(bar) {}
    MenuState MenuStateNow() const override {
        MenuState state = MainMenuBar::ToolbarState(bar_);
        state.pCidxFlg = selection;
        state.resetAllowed = true;
        return state;
    }
    int selection = 0;
    std::vector<std::string> calls;

    // Each handler records its own name.
    // clang-format off
#define RECORD(name) void _##name##_Action() override { calls.push_back(#name); }
    RECORD(FileExportExif); RECORD(FileExportJpeg); RECORD(FileExportSaveAs);
    RECORD(FileExportJpegAll); RECORD(FileQuit); RECORD(EditCopy); RECORD(EditSelectAll);
    RECORD(EditPref); RECORD(ViewReload); RECORD(ViewAppear); RECORD(ViewCustomize);
    RECORD(ThmbL); RECORD(ThmbR); RECORD(WinCollapse); RECORD(WinZoom); RECORD(WinReset);
    RECORD(WinBringAllFront); RECORD(WinWindow1); RECORD(HelpHome); RECORD(HelpReadme);
    RECORD(HelpHelpbook); RECORD(AppleAbout);
#undef RECORD
    // clang-format on

  private:
    MainToolBar& bar_;
};

class MainMenuBarTest : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        ::setenv("XDG_CONFIG_HOME", dir.path().toUtf8().constData(), 1);
        bar = new MainToolBar(commands, ToolbarConfig(), &window);
        recorder = std::make_unique<RecordingCommands>(*bar);
        menus = new MainMenuBar(*recorder, &window);
        window.setMenuBar(menus);
    }
    void Select(int selection) {
        recorder->selection = selection;
        commands.SetBtnStat(selection, false, nullptr);
        commands.SetBtnStatAll(selection > 0);
    }
    std::string Enabled(std::initializer_list<MenuItem> items) const {
        std::string flags;
        for (MenuItem item : items)
            flags += menus->Action(item)->isEnabled() ? '1' : '0';
        return flags;
    }

    QTemporaryDir dir;
    CommandState commands;
    QMainWindow window;
    MainToolBar* bar = nullptr;
    std::unique_ptr<RecordingCommands> recorder;
    MainMenuBar* menus = nullptr;
};

// The handler an item should reach: its own, both copies the one copy, and none for the
// items that this program lists without having their commands.
std::vector<std::string> Expected(const MenuItemRow& entry) {
    using M = MenuItem;
    for (M none : {M::EditUndo, M::EditRedo, M::EditCut, M::EditPaste, M::EditClear})
        if (entry.item == none) return {};
    return {entry.item == M::EditCopy2 ? "EditCopy" : entry.name};
}

TEST_F(MainMenuBarTest, EachItemReachesItsCommand) {
    Select(1);
    emit menus->Menu("FileMenu")->aboutToShow();
    for (const MenuRow& menu : MenuItems::Table()) {
        for (const MenuItemRow& entry : menu.items) {
            if (entry.item == MenuItem::Separator) continue;
            recorder->calls.clear();
            QAction* action = menus->Action(entry.item);
            ASSERT_NE(action, nullptr) << entry.name;
            action->trigger();
            EXPECT_EQ(recorder->calls, Expected(entry)) << entry.name;
        }
    }
}

TEST_F(MainMenuBarTest, EnabledStatesFollowTheCommandState) {
    using M = MenuItem;
    const auto items = {M::FileExportJpeg, M::FileExportJpegAll, M::EditSelectAll, M::EditCopy2,
                        M::ThmbR};
    // The last case is a scan starting: it clears the selection and turns export-all off.
    const struct {
        int selection;
        const char* expected;
    } cases[] = {{0, "00000"}, {1, "11111"}, {2, "11101"}, {0, "00000"}};
    for (const auto& c : cases) {
        Select(c.selection);
        emit menus->Menu("Thmb")->aboutToShow();
        EXPECT_EQ(Enabled(items), c.expected) << c.selection;
    }
    // The export pop-up off the toolbar takes its menu items with it.
    Select(1);
    bar->SetItems({ToolbarItems::FindTag(602)->identifier});
    emit menus->Menu("EditMenu")->aboutToShow();
    EXPECT_EQ(Enabled(items), "01111");
}

// A shortcut sees the state of the moment, with no menu opened since it changed.
TEST_F(MainMenuBarTest, ShortcutsSeeTheStateNowAndAltOffersTheReset) {
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Select(1);
    QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    Select(2);
    QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(&window, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(recorder->calls, (std::vector<std::string>{"EditCopy", "ThmbR"}));

    // Alt held in the open window menu offers the reset, and the menu stays open.
    QMenu* win = menus->Menu("Win");
    win->popup(QPoint(0, 0));
    QAction* reset = menus->Action(MenuItem::WinReset);
    EXPECT_FALSE(reset->isVisible());
    QTest::keyPress(win, Qt::Key_Alt);
    EXPECT_TRUE(reset->isVisible() && win->isVisible());
    QTest::keyRelease(win, Qt::Key_Alt);
    EXPECT_FALSE(reset->isVisible());
    win->hide();
}

}  // namespace
}  // namespace lumivex
