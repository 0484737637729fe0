// The information window: the caution for a file without Exif, what the four lists show, and
// copy and select-all by command and by key.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <fstream>

#include "../app/ScriptedPrompter.h"
#include "RealisticCamera.h"
#include "ScratchDir.h"
#include "browser/ExifInfoGPS.h"

namespace lumivex {
namespace {

class ExifInfoGPSTest : public ::testing::Test {
  protected:
    void SetUp() override { parent_.show(); }

    ExifInfoGPS* Open(const std::filesystem::path& path) {
        return ExifInfoGPS::SelFileExifGPS(&parent_, prompter_, path, false);
    }

    QWidget parent_;  // stands for the main window
    ScriptedPrompter prompter_;
    fixtures::ScratchDir dir_;
};

TEST_F(ExifInfoGPSTest, FileWithoutExifGetsTheCautionAndNoWindow) {
    const auto plain = dir_.path() / "plain.jpg";
    std::ofstream(plain, std::ios::binary) << "\xFF\xD8\xFF\xD9";
    EXPECT_EQ(Open(plain), nullptr);
    EXPECT_EQ(prompter_.asked, QStringList{"このファイルにはExif情報が含まれていません。"});
}

TEST_F(ExifInfoGPSTest, ShowsTheFourListsWindowModalAndCopiesTheSelectedRows) {
    const auto path = dir_.path() / "IMG_0000.JPG";
    fixtures::WriteRealisticCamera(path, 1, 24 * 1024, fixtures::ByteOrder::Little);  // with GPS
    QPointer<ExifInfoGPS> dialog = Open(path);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);

    ExifReader x;
    x.fitem = path;
    x.GetExif();
    const ExifInfoList rows[] = {ExifInfoRows::SelFileExif21(x), ExifInfoRows::SelFileExif22(x),
                                 ExifInfoRows::SelFileExif23(x), ExifInfoRows::SelFileExif24(x)};
    const int counts[] = {22, 30, 61, 27};
    for (int l = 0; l < 4; ++l) {
        QTableWidget* list = dialog->ListBox(l);
        ASSERT_EQ(list->rowCount(), counts[l]);
        for (int r = 0; r < list->rowCount(); ++r) {
            const ExifInfoRow& want = rows[l][static_cast<std::size_t>(r)];
            EXPECT_EQ(list->item(r, 0)->text().toStdString(), want.label);
            EXPECT_TRUE(list->item(r, 0)->textAlignment() & Qt::AlignRight);
            EXPECT_EQ(list->item(r, 1)->text().toStdString(), want.value);
            EXPECT_EQ(list->item(r, 1)->font().bold(), want.present) << want.label;
        }
    }

    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText("before");
    dialog->CopyString();
    EXPECT_EQ(clipboard->text(), "before");  // nothing selected: the clipboard is left alone

    dialog->ListBox(0)->selectRow(1);
    dialog->ListBox(3)->selectRow(1);  // on a tab out of sight
    dialog->CopyString();
    EXPECT_EQ(clipboard->text(), "メーカー :NORDLICHT\nLatitudeRef :N\n");

    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::keyClick(dialog->ListBox(0), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(dialog->ListBox(0), Qt::Key_C, Qt::ControlModifier);
    // One row a line from every list, and the last line's end.
    EXPECT_EQ(clipboard->text().split('\n').size(), 22 + 30 + 61 + 27 + 1);
    dialog->CloseButton()->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(dialog.isNull());

    // A file without GPS: its GPS list says so.
    fixtures::WriteRealisticCamera(path, 0, 24 * 1024, fixtures::ByteOrder::Little);
    dialog = Open(path);
    dialog->ListBox(3)->selectRow(1);
    dialog->CopyString();
    EXPECT_EQ(clipboard->text(), "GPSデータは:含まれていません。\n");
}

}  // namespace
}  // namespace lumivex
