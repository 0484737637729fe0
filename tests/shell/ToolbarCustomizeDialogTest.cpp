#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <cstdlib>
#include <memory>

#include "model/CommandState.h"
#include "model/ToolbarItems.h"
#include "shell/MainToolBar.h"
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
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    // Qt hands a drop only to the widget that the drag entered.
    QDragEnterEvent enter(pos, actions, mime.get(), Qt::LeftButton, {});
    QApplication::sendEvent(to->viewport(), &enter);
    QDropEvent drop(pos, actions, mime.get(), Qt::LeftButton, {});
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
        EXPECT_EQ(dialog.AllowedList()->count(), 10) << c.what;
    }
}

TEST(ToolbarCustomizeDialogTest, TheAcceptedListGoesToTheToolbar) {
    QTemporaryDir dir;
    ::setenv("XDG_CONFIG_HOME", dir.path().toUtf8().constData(), 1);
    CommandState commands;
    QWidget window;
    MainToolBar bar(commands, ToolbarConfig(), &window);
    for (bool accept : {false, true}) {
        bar.RunCustomizationDialog(&window);
        auto* dialog = window.findChild<ToolbarCustomizeDialog*>();
        ASSERT_NE(dialog, nullptr);
        dialog->CurrentList()->setCurrentRow(0);
        dialog->RemoveButton()->click();
        accept ? dialog->accept() : dialog->reject();
        delete dialog;  // what the event loop would do at once
        EXPECT_EQ(Tags(bar.Items()), accept ? "602 _ 603 604 _ 605 _ 606 ~ 609"
                                            : "601 602 _ 603 604 _ 605 _ 606 ~ 609");
    }
    EXPECT_EQ(MainToolBar(commands, ToolbarConfig()).Items(), bar.Items());
}

}  // namespace
}  // namespace lumivex
