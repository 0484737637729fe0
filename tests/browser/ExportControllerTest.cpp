#include "browser/ExportController.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <fstream>
#include <iterator>
#include <thread>

#include "../app/ScriptedPrompter.h"
#include "CameraFiles.h"
#include "ReadBack.h"
#include "ScratchDir.h"
#include "browser/ScanProgressStrip.h"
#include "browser/ScanWorker.h"
#include "core/JpegCodec.h"
#include "core/Settings.h"
#include "exif/ExifReader.h"
#include "model/ItemRotation.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;
const QString kRotated = QStringLiteral("回転画像はexif形式で書き出しできません。");
const QString kOriented = QStringLiteral(
    "表示画像はexifの情報に従って回転していますが、exif形式では回転なしで書き出されます。");

bool Near(Color a, Color b) {
    return std::abs(a.r - b.r) <= 6 && std::abs(a.g - b.g) <= 6 && std::abs(a.b - b.b) <= 6;
}

class ExportTest : public ::testing::Test {
  protected:
    ExportTest() {
        fs::create_directories(card_);
        fs::create_directories(out_);
    }
    // A camera file whose thumbnail the item shows; returns where the thumbnail lies.
    fixtures::Layout AddCameraItem(const std::string& name) {
        const fixtures::Layout layout = fixtures::WriteCamera(card_ / name);
        ExifReader reader;
        reader.fitem = card_ / name;
        reader.GetThumbNail();
        items_.push_back(Item(name, reader.Thumbnail));
        items_.back().thumb = reader.Stored;  // as the scan keeps it
        return layout;
    }
    ItemRecord Item(const std::string& name, Picture pict) {
        return {.fname = name,
                .path = (card_ / name).string(),
                .thumb = StoredThumbnail::FromPixels(pict)};
    }
    void AddSmallItems(int n) {
        for (int i = 0; i < n; ++i) {
            Picture p = Picture::Make(16, 12);
            p.Fill(Color{static_cast<std::uint8_t>(i), 0x80, 0x40});
            items_.push_back(Item("IMG_" + std::to_string(1000 + i) + ".JPG", std::move(p)));
        }
    }
    // The file type line of the writer for files ending in `suffix`; empty when there is none.
    QString Filter(const std::string& suffix) const {
        for (const auto& f : ExportController::WritableFormats())
            if (std::find(f.suffixes.begin(), f.suffixes.end(), suffix) != f.suffixes.end())
                return QString::fromStdString(ExportFormatChoice::FilterText(f));
        return {};
    }

    fixtures::ScratchDir dir_;
    const fs::path card_ = dir_.path() / "DCIM";
    const fs::path out_ = dir_.path() / "out";
    Settings prefs_;
    ScriptedPrompter prompter_;
    ScanWorker worker_;
    ScanProgressStrip strip_;
    std::vector<ItemRecord> items_;
    ExportController ctl_{prefs_, prompter_, worker_, strip_, items_, nullptr};
};

// The stored thumbnail is written unrotated, byte for byte, and only after each kind of turn
// has been confirmed; a cancel writes nothing.
TEST_F(ExportTest, ExifFormAsksAboutTurnsAndWritesTheStoredBytes) {
    const fixtures::Layout layout = AddCameraItem("IMG_0001.JPG");
    const auto source = fixtures::ReadBytes(card_ / "IMG_0001.JPG");
    const std::vector<std::uint8_t> stored(source.begin() + layout.thumbStart,
                                           source.begin() + layout.thumbStart + layout.thumbLength);
    ItemRotation::RotateImageRSingle(items_[0]);
    items_[0].rotate = 1;
    struct Case {
        std::int64_t orientation;
        std::deque<int> answers;
        QStringList asked;
        bool written;
    };
    const std::vector<Case> cases{
        {0, {Prompter::kCancel}, {kRotated}, false},
        {0, {Prompter::kAction}, {kRotated, "exif形式で書き出し"}, true},
        {1, {Prompter::kAction, Prompter::kCancel}, {kRotated, kOriented}, false},
        {1,
         {Prompter::kAction, Prompter::kAction},
         {kRotated, kOriented, "exif形式で書き出し"},
         true},
    };
    const fs::path target = out_ / "T.JPG";
    prompter_.files = {QString::fromStdString(target.string())};
    for (const auto& c : cases) {
        fs::remove(target);
        prefs_.gPref[pref::kFollowOrientation] = c.orientation;
        prompter_.answers = c.answers;
        prompter_.asked.clear();
        ctl_.ExportThumbNail(1, 0, ExportController::kExif);
        EXPECT_EQ(prompter_.asked, c.asked);
        EXPECT_EQ(fixtures::ReadBytes(target), c.written ? stored : std::vector<std::uint8_t>{});
    }
}

// Both forms write the turned picture. The typed extension wins when it names a format;
// otherwise the chosen file type decides and gives the name its extension. A source picture
// is never the target.
TEST_F(ExportTest, JpegAndChosenFormatWriteTheTurnedPicture) {
    AddCameraItem("IMG_0001.JPG");
    ItemRotation::RotateImageRSingle(items_[0]);
    prompter_.files = {QString::fromStdString((out_ / "R").string())};  // typed without extension
    ctl_.ExportThumbNail(1, 0, ExportController::kJpeg);
    const Picture written = JpegCodec::Decode(fixtures::ReadBytes(out_ / "R.jpg")),
                  shown = items_[0].Shown();
    ASSERT_EQ(std::pair(written.Width(), written.Height()), std::pair(120, 160));
    for (const auto& [x, y] : {std::pair{0, 0}, {119, 0}, {0, 159}, {60, 40}})
        EXPECT_TRUE(Near(written.Pixel(x, y), shown.Pixel(x, y))) << x << "," << y;
    struct Case {
        std::string filter, typed, file, suffix, format;  // format: what a reader finds
    };
    const std::vector<Case> cases{
        {"png", "a", "a.png", "png", "png"},
        {"png", "b.jpg", "b.jpg", "jpg", "jpeg"},
        {"webp", "d.BMP", "d.BMP", "bmp", "bmp"},
    };
    for (const auto& c : cases) {
        if (Filter(c.filter).isEmpty() || Filter(c.suffix).isEmpty())
            continue;  // no such writer on this machine
        prompter_.filterAnswer = Filter(c.filter);
        prompter_.files = {QString::fromStdString((out_ / c.typed).string())};
        ctl_.ExportThumbNail(1, 0, ExportController::kAs);
        QImageReader reader(QString::fromStdString((out_ / c.file).string()));
        EXPECT_EQ(reader.format().toStdString(), c.format) << c.typed;
        EXPECT_EQ(reader.size(), QSize(120, 160)) << c.typed;
    }
    const auto source = fixtures::ReadBytes(card_ / "IMG_0001.JPG");
    prompter_.filterAnswer = Filter("png");
    prompter_.files = {QString::fromStdString((card_ / "IMG_0001.JPG").string())};
    ctl_.ExportThumbNail(1, 0, ExportController::kAs);
    EXPECT_EQ(fixtures::ReadBytes(card_ / "IMG_0001.JPG"), source);
    EXPECT_EQ(prompter_.asked.back(), QStringLiteral("元の画像ファイルには書き出せません。"));
}

TEST_F(ExportTest, CopyTakesOnlyTheOneSelectedItem) {
    AddSmallItems(2);
    EXPECT_FALSE(ctl_.GenClipboard(2, 0));
    ItemRotation::RotateImageLSingle(items_[1]);
    ASSERT_TRUE(ctl_.GenClipboard(1, 1));
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), QSize(12, 16));
    EXPECT_EQ(copied.pixelColor(0, 0), QColor(1, 0x80, 0x40));
}

// One worker for scans and exports: a second start is refused either way. The worker gets
// the pictures a batch at a time; held at the first batch and stopped, it leaves whole files
// of that batch and nothing else, each as its item shows it: the scan's turn and the user's,
// both decoded by the worker from the item's stored thumbnail.
TEST_F(ExportTest, SecondStartIsRefusedAndAStopKeepsWhatWasWritten) {
    AddSmallItems(static_cast<int>(ExportController::kFeedAhead) + 40);
    items_[0].rotate = 1;                         // turned by its orientation tag
    ItemRotation::RotateImageLSingle(items_[1]);  // turned by the user
    prompter_.files = {QString::fromStdString(out_.string())};
    ASSERT_TRUE(worker_.Start(card_, ScanOptions{}));
    EXPECT_FALSE(ctl_.ExportThumbNailAll());
    EXPECT_EQ(prompter_.asked, QStringList{QStringLiteral("ほかの処理を実行中です。")});
    worker_.Stop();
    ASSERT_TRUE(worker_.Finish(std::chrono::seconds(5)));

    ASSERT_TRUE(ctl_.ExportThumbNailAll());
    EXPECT_FALSE(worker_.Start(card_, ScanOptions{}));
    EXPECT_TRUE(strip_.JobShown());
    EXPECT_EQ(strip_.ProgressBar1->maximum(), static_cast<int>(items_.size()) - 1);
    for (int i = 0; i < 2000 && worker_.ProgVal() < ExportController::kFeedStep; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    QSignalSpy ended(&ctl_, &ExportController::exportFinished);
    strip_.PushButton1->click();
    ASSERT_TRUE(ended.wait(20000));
    EXPECT_FALSE(strip_.JobShown());
    EXPECT_EQ(std::distance(fs::directory_iterator(out_), {}), ExportController::kFeedStep);
    for (std::size_t i = 0; i < 3; ++i) {
        const Picture written = JpegCodec::Decode(
            fixtures::ReadBytes(out_ / ("IMG_" + std::to_string(1000 + i) + ".jpg")));
        const Picture shown = items_[i].Shown();
        EXPECT_EQ(std::pair(written.Width(), written.Height()),
                  std::pair(shown.Width(), shown.Height()))
            << i;
        EXPECT_TRUE(Near(written.Pixel(5, 5), shown.Pixel(5, 5))) << i;
    }
}

// Export-all into the shown folder itself, by any path, must never replace a source picture,
// even one the grid does not show (nor, on the second run, the first run's file); into
// another folder it replaces a same-named file.
TEST_F(ExportTest, ExportAllNeverReplacesASourcePicture) {
    AddSmallItems(1);                                      // IMG_1000.JPG: its target is new
    items_.push_back(Item("b.jpg", Picture::Make(8, 8)));  // its own target
    items_.push_back(Item("D.JPG", Picture::Make(8, 8)));  // D.jpg: a picture not shown
    std::ofstream(card_ / "b.jpg") << "source b";
    std::ofstream(card_ / "D.jpg") << "source D";
    std::ofstream(out_ / "b.jpg") << "old export";
    fs::create_directory_symlink(card_, dir_.path() / "link");
    const std::vector<std::pair<fs::path, std::size_t>> runs{
        {dir_.path() / "link", 2}, {card_, 3}, {out_, 0}};
    for (const auto& [folder, spared] : runs) {
        prompter_.files = {QString::fromStdString(folder.string())};
        QSignalSpy ended(&ctl_, &ExportController::exportFinished);
        ASSERT_TRUE(ctl_.ExportThumbNailAll());
        ASSERT_TRUE(ended.wait(20000));
        EXPECT_EQ(worker_.Protected(), spared) << folder;
    }
    EXPECT_EQ(fs::file_size(card_ / "b.jpg"), 8u);  // "source b", not an export
    for (const fs::path& written : {card_ / "IMG_1000.jpg", out_ / "b.jpg", out_ / "D.jpg"})
        EXPECT_FALSE(JpegCodec::Decode(fixtures::ReadBytes(written)).IsNull()) << written;
}

}  // namespace
}  // namespace lumivex
