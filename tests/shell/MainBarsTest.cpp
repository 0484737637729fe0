// The toolbar, its customising dialog and the menu bar over one command state.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "model/CommandState.h"
#include "model/ToolbarItems.h"
#include "shell/MainMenuBar.h"
#include "shell/MainToolBar.h"
#include "shell/MenuCommands.h"
#include "shell/ToolbarCustomizeDialog.h"
#include "shell/ToolbarItemListWidget.h"

namespace lumivex {
namespace {

std::string Id(int tag) {
    return ToolbarItems::FindTag(tag)->identifier;
}

// The toolbar list as tags, "_" for a space.
std::string Tags(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& id : items) {
        if (!text.empty()) text += ' ';
        const ToolbarItemRow* entry = ToolbarItems::FindIdentifier(id);
        text += entry ? std::to_string(entry->tag) : id == ToolbarItems::kSpace ? "_" : "~";
    }
    return text;
}

// Drops row `row` of `from` onto row `at` of `to` as a drag would, with the dragged data that
// `from` makes.
void Drop(ToolbarItemListWidget* from, int row, ToolbarItemListWidget* to, int at) {
    to->window()->show();
    const QModelIndex index = from->model()->index(row, 0);
    std::unique_ptr<QMimeData> mime(from->model()->mimeData({index}));
    ASSERT_NE(mime, nullptr);
    const QPoint pos = at < to->count() ? to->visualItemRect(to->item(at)).topLeft() + QPoint(2, 1)
                                        : QPoint(2, to->viewport()->height() - 2);
    // Qt hands a drop only to the widget that the drag entered.
    QDragEnterEvent enter(pos, Qt::CopyAction | Qt::MoveAction, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to->viewport(), &enter);
    QDropEvent drop(pos, Qt::CopyAction | Qt::MoveAction, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to->viewport(), &drop);
}

TEST(ToolbarCustomizeDialogTest, ButtonsAndDropsEditTheList) {
    const std::vector<std::string> start = {Id(601), Id(602), Id(603)};
    using Dialog = ToolbarCustomizeDialog;
    const struct {
        const char* what;
        void (*edit)(Dialog&);
        const char* expected;
    } cases[] = {
        // clang-format off
        {"add 610 behind the selection", [](Dialog& d) {
             d.AllowedList()->setCurrentRow(6), d.CurrentList()->setCurrentRow(0), d.AddButton()->click(); },
         "601 610 602 603"},
        {"remove", [](Dialog& d) { d.CurrentList()->setCurrentRow(1), d.RemoveButton()->click(); }, "601 603"},
        {"up twice at the top", [](Dialog& d) {
             d.CurrentList()->setCurrentRow(1), d.UpButton()->click(), d.UpButton()->click(); }, "602 601 603"},
        {"down", [](Dialog& d) { d.CurrentList()->setCurrentRow(0), d.DownButton()->click(); }, "602 601 603"},
        {"default set", [](Dialog& d) { d.DefaultButton()->click(); }, "601 602 _ 603 604 _ 605 _ 606 ~ 609"},
        {"drop an allowed item", [](Dialog& d) { Drop(d.AllowedList(), 3, d.CurrentList(), 1); }, "601 604 602 603"},
        {"drag within the toolbar", [](Dialog& d) { Drop(d.CurrentList(), 0, d.CurrentList(), 2); }, "602 601 603"},
        {"drag off the toolbar", [](Dialog& d) { Drop(d.CurrentList(), 1, d.AllowedList(), 0); }, "601 603"},
        // clang-format on
    };
    for (const auto& c : cases) {
        Dialog dialog(start, nullptr);
        c.edit(dialog);
        EXPECT_EQ(Tags(dialog.Items()), c.expected) << c.what;
        EXPECT_EQ(dialog.CurrentList()->count(), static_cast<int>(dialog.Items().size()));
    }
}

// Each case has its own configuration folder, as the program's users have theirs.
class MainToolBarTest : public ::testing::Test {
  protected:
    void SetUp() override { ::setenv("XDG_CONFIG_HOME", dir.path().toUtf8().constData(), 1); }
    std::unique_ptr<MainToolBar> Make(QWidget* parent = nullptr) {
        return std::make_unique<MainToolBar>(commands, ToolbarConfig(), parent);
    }

    QTemporaryDir dir;
    CommandState commands;
};

TEST_F(MainToolBarTest, EachItemSendsItsTagAndThePopUpItsMode) {
    auto bar = Make();
    bar->SetItems(ToolbarItems::AllowedItemIdentifiers());
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
    // The pop-up's entries ask what its button shows.
    commands.SetBtnStat(1, false, nullptr);
    EXPECT_TRUE(bar->ToolbarMenuAppeared(902));
}

TEST_F(MainToolBarTest, ItemsAndShownStateSurviveARestart) {
    const std::vector<std::string> chosen = {Id(610), ToolbarItems::kSpace, Id(601)};
    for (const auto& [items, shown] :
         {std::pair{chosen, false}, {{}, true}, {ToolbarItems::DefaultItemIdentifiers(), false}}) {
        QWidget host;
        auto bar = Make();
        bar->SetItems(items);
        bar->SetToolbarVisible(shown);
        bar = Make(&host);  // reads only what the first one saved
        EXPECT_EQ(bar->Items(), items);
        EXPECT_EQ(bar->GetToolbarVisible(), shown);
        EXPECT_EQ(bar->isVisibleTo(&host), shown);
        EXPECT_EQ(bar->actions().size(), static_cast<qsizetype>(items.size()));
    }
    EXPECT_TRUE(QFile::exists(dir.filePath("com.ZenmoraWorksJP.LumivexPlus.conf")));
    commands.SetBtnStat(1, false, nullptr);  // the state outlives the toolbars
}

// The customising dialog's list replaces the toolbar's only when accepted.
TEST_F(MainToolBarTest, TheCustomisedListIsTakenOnlyWhenAccepted) {
    QWidget window;
    auto bar = Make(&window);
    const std::vector<std::string> defaults = ToolbarItems::DefaultItemIdentifiers();
    for (bool accept : {false, true}) {
        bar->RunCustomizationDialog(&window);
        auto* dialog = window.findChild<ToolbarCustomizeDialog*>();
        ASSERT_NE(dialog, nullptr);
        dialog->CurrentList()->setCurrentRow(0);
        dialog->RemoveButton()->click();
        accept ? dialog->accept() : dialog->reject();
        delete dialog;  // what the event loop would do at once
        EXPECT_EQ(bar->Items(), std::vector(defaults.begin() + accept, defaults.end()));
    }
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
    bar->SetItems({Id(610), ToolbarItems::kSpace, Id(601)});
    QTest::qWait(20);
    EXPECT_EQ(menuTexts(), QStringLiteral("書き出し"));
    EXPECT_EQ(extension->menu()->actions().value(0)->menu(), bar->ExportMenu());
    window.resize(1200, 120);
    QTest::qWait(20);
    EXPECT_FALSE(extension->isVisible());
}

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

class MainMenuBarTest : public MainToolBarTest {
  protected:
    void SetUp() override {
        MainToolBarTest::SetUp();
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
    for (const auto& [selection, expected] :
         {std::pair{0, "00000"}, {1, "11111"}, {2, "11101"}, {0, "00000"}}) {
        Select(selection);
        emit menus->Menu("Thmb")->aboutToShow();
        EXPECT_EQ(Enabled(items), expected) << selection;
    }
    // The export pop-up off the toolbar takes its menu items with it.
    Select(1);
    bar->SetItems({Id(602)});
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
