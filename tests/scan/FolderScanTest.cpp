// The folder scan: name order, the extension filter, skips, stop, and batch extraction that
// never takes the place of an existing file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "CameraFiles.h"
#include "ReadBack.h"
#include "ScratchDir.h"
#include "core/JpegCodec.h"
#include "core/Settings.h"
#include "scan/BatchExtractor.h"
#include "scan/FolderScan.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

std::string Label(const ScanItem& item) {
    return item.fname + " " + std::to_string(item.w) + "x" + std::to_string(item.h);
}

class ScanTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directory(Card());
        prefs_.InitAll();
    }
    fs::path Card() const { return dir_.path() / "card"; }
    ScanOptions Options(unsigned threads = 2) const {
        ScanOptions o = ScanOptions::FromSettings(prefs_);
        o.threads = threads;
        return o;
    }
    // "name WxH" of every item, in the order given.
    std::vector<std::string> Items(const ScanOptions& options) const {
        std::vector<std::string> items;
        FolderScan(Card(), options).Run([&](ScanItem&& item) { items.push_back(Label(item)); });
        return items;
    }

    fixtures::ScratchDir dir_;
    Settings prefs_;
};

TEST_F(ScanTest, NameOrderFilterAndSkips) {
    fixtures::WriteCamera(Card() / "b.JPG", 40, 24);
    fixtures::WriteCamera(Card() / "a.jpg", 32, 24);
    fixtures::WriteCamera(Card() / "Z.JPEG", 48, 24);
    fixtures::WriteCamera(Card() / "d.jpg", 0, 24);  // Exif without a thumbnail
    std::ofstream(Card() / "c.txt") << "not a picture";
    std::ofstream(Card() / "e.tif") << "II*";
    fs::create_directory(Card() / "sub.jpg");
    std::vector<std::string> items, skips;
    FolderScan scan(Card(), Options());
    EXPECT_EQ(scan.EntryCount(), 7u);
    const ScanStats stats = scan.Run([&](ScanItem&& item) { items.push_back(item.fname); },
                                     [&](const std::string& name, SkipReason reason) {
                                         skips.push_back(name + ":" + std::to_string(int(reason)));
                                     });
    EXPECT_EQ(items, (std::vector<std::string>{"Z.JPEG", "a.jpg", "b.JPG"}));
    // Not an image name 0, unreadable 1, no Exif 2, no thumbnail 3; in name order.
    EXPECT_EQ(skips, (std::vector<std::string>{"c.txt:0", "d.jpg:3", "e.tif:2", "sub.jpg:1"}));
    EXPECT_GT(stats.bytesRead, 0u);

    // With the placeholder switch the file without a thumbnail becomes an item too; with the
    // JPEG group switched off nothing passes.
    ScanOptions withPlaceholder = Options();
    withPlaceholder.noThumb = true;
    EXPECT_EQ(Items(withPlaceholder), (std::vector<std::string>{"Z.JPEG 48x24", "a.jpg 32x24",
                                                                "b.JPG 40x24", "d.jpg 160x120"}));
    prefs_.gPref[pref::GroupSwitch(2)] = 0;
    EXPECT_EQ(Items(Options()), std::vector<std::string>());
}

TEST_F(ScanTest, BatchExtractionNeverReplacesAFile) {
    fixtures::WriteCamera(Card() / "IMG_1.JPG", 40, 24);
    fixtures::WriteCamera(Card() / "IMG_1.jpeg", 44, 24);  // same target name as the one before
    fixtures::WriteCamera(Card() / "IMG_2.JPG", 32, 24);
    fixtures::WriteCamera(Card() / "plain.jpg", 0, 24);
    std::ofstream(Card() / "notes.txt") << "x";
    const auto records = BatchExtractor::Collect(Card(), Options());
    ASSERT_EQ(records.size(), 4u);  // notes.txt is no candidate
    EXPECT_TRUE(BatchExtractor::HasThumbnail(records));
    EXPECT_FALSE(BatchExtractor::HasThumbnail({records.back()}));

    const fs::path out = dir_.path() / "out";
    fs::create_directories(out);
    std::ofstream(out / "IMG_2.jpg") << "mine";
    const auto report = BatchExtractor::Write(records, Card(), out);
    EXPECT_EQ(report.written, 1u);
    ASSERT_EQ(report.skipped.size(), 2u);
    EXPECT_EQ(report.skipped[0].fname, "IMG_1.jpeg");
    EXPECT_EQ(report.skipped[1].fname, "IMG_2.JPG");
    EXPECT_EQ(fixtures::ReadBytes(out / "IMG_2.jpg"),
              (std::vector<std::uint8_t>{'m', 'i', 'n', 'e'}));
    // The first of the two with one name wins.
    EXPECT_EQ(JpegCodec::Decode(fixtures::ReadBytes(out / "IMG_1.jpg")).Width(), 40);

    // Into the source folder itself: nothing is written and every thumbnail is reported.
    const auto same = BatchExtractor::Write(records, Card(), Card() / ".");
    EXPECT_EQ(same.written, 0u);
    EXPECT_EQ(same.skipped.size(), 3u);
}

// The order across threads is the engine's; here a stop ends the scan, the reading and the
// writing where they are, and both report their progress.
TEST_F(ScanTest, ProgressAndStops) {
    fixtures::WriteCameraFolder(Card(), fixtures::NumberedNames(40), 32, 24);
    FolderScan scan(Card(), Options(3));
    std::vector<std::string> kept;
    const ScanStats stats = scan.Run([&](ScanItem&& item) {
        kept.push_back(item.fname);
        if (kept.size() == 5) scan.Stop();
    });
    EXPECT_TRUE(stats.stopped);
    EXPECT_EQ(kept.back(), "IMG_10004.JPG");
    EXPECT_EQ(scan.Progress(), 5u);

    const fs::path out = dir_.path() / "out";
    fs::create_directories(out);

    BatchExtractor::Control reading;
    const auto records = BatchExtractor::Collect(Card(), Options(), reading);
    EXPECT_EQ(records.size(), 40u);
    EXPECT_EQ(reading.total.load(), 40u);
    EXPECT_EQ(reading.done.load(), 40u);
    BatchExtractor::Control stopped;
    stopped.stop = true;  // heard at the first entry handed out
    EXPECT_LT(BatchExtractor::Collect(Card(), Options(), stopped).size(), 40u);

    BatchExtractor::Control halted;
    halted.stop = true;
    EXPECT_EQ(BatchExtractor::Write(records, Card(), out, halted).written, 0u);
    EXPECT_TRUE(fs::is_empty(out));
    BatchExtractor::Control writing;
    EXPECT_EQ(BatchExtractor::Write(records, Card(), out, writing).written, 40u);
    EXPECT_EQ(writing.total.load(), 40u);
    EXPECT_EQ(writing.done.load(), 40u);
}

}  // namespace
}  // namespace lumivex
