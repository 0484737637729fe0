// The folder scan: name order, the extension filter, skips, stop, and batch extraction that
// never takes the place of an existing file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "ExifJpegBuilder.h"
#include "core/JpegCodec.h"
#include "core/Settings.h"
#include "scan/BatchExtractor.h"
#include "scan/FolderScan.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

class ScanTest : public ::testing::Test {
  protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("lumivex-scan-" + std::to_string(::getpid()));
        fs::remove_all(dir_);
        fs::create_directories(dir_ / "card");
        prefs_.InitAll();
    }
    void TearDown() override { fs::remove_all(dir_); }

    fs::path Card() const { return dir_ / "card"; }
    void Camera(const std::string& name, int width = 32, bool thumbnail = true) const {
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        if (thumbnail) b.JpegThumbnail(width, 24);
        b.Write(Card() / name);
    }
    void Text(const std::string& name, const std::string& text) const {
        std::ofstream(Card() / name) << text;
    }
    ScanOptions Options(unsigned threads = 2) const {
        ScanOptions o = ScanOptions::FromSettings(prefs_);
        o.threads = threads;
        return o;
    }

    fs::path dir_;
    Settings prefs_;
};

TEST_F(ScanTest, NameOrderFilterAndSkips) {
    Camera("b.JPG", 40);
    Camera("a.jpg", 32);
    Camera("Z.JPEG", 48);
    Camera("d.jpg", 32, false);  // Exif without a thumbnail
    Text("c.txt", "not a picture");
    Text("e.tif", "II*\0");
    fs::create_directory(Card() / "sub.jpg");
    std::vector<std::string> items, skips;
    FolderScan scan(Card(), Options());
    EXPECT_EQ(scan.EntryCount(), 7u);
    const ScanStats stats = scan.Run(
        [&](ScanItem&& item) {
            items.push_back(item.fname + " " + std::to_string(item.w) + "x" +
                            std::to_string(item.h));
            EXPECT_EQ(item.path, (Card() / item.fname).string());
        },
        [&](const std::string& name, SkipReason reason) {
            skips.push_back(name + ":" + std::to_string(int(reason)));
        });
    EXPECT_EQ(items, (std::vector<std::string>{"Z.JPEG 48x24", "a.jpg 32x24", "b.JPG 40x24"}));
    // Not an image name 0, unreadable 1, no Exif 2, no thumbnail 3; in name order.
    EXPECT_EQ(skips, (std::vector<std::string>{"c.txt:0", "d.jpg:3", "e.tif:2", "sub.jpg:1"}));
    EXPECT_EQ(stats.items, 3u);
    EXPECT_EQ(scan.Progress(), 7u);
    EXPECT_GT(stats.bytesRead, 0u);

    // With the placeholder switch the file without a thumbnail becomes an item too; with the
    // JPEG group switched off nothing passes.
    ScanOptions withPlaceholder = Options();
    withPlaceholder.noThumb = true;
    std::size_t count = 0;
    FolderScan(Card(), withPlaceholder).Run([&](ScanItem&&) { ++count; });
    EXPECT_EQ(count, 4u);
    prefs_.gPref[22] = 0;
    count = 0;
    FolderScan(Card(), Options()).Run([&](ScanItem&&) { ++count; });
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(FolderScan(dir_ / "missing", Options()).EntryCount(), 0u);
}

TEST_F(ScanTest, SameOrderOnAnyThreadCountAndStop) {
    for (int i = 0; i < 150; ++i)
        Camera("IMG_" + std::to_string(1000 + (i * 37) % 150) + ".JPG", 16 + i % 5);
    std::vector<std::string> one;
    FolderScan(Card(), Options(1)).Run([&](ScanItem&& item) {
        one.push_back(item.fname + std::to_string(item.w));
    });
    ASSERT_EQ(one.size(), 150u);
    EXPECT_TRUE(std::is_sorted(one.begin(), one.end()));
    std::vector<std::string> three;
    FolderScan(Card(), Options(3)).Run([&](ScanItem&& item) {
        three.push_back(item.fname + std::to_string(item.w));
    });
    EXPECT_EQ(three, one);

    FolderScan scan(Card(), Options(2));
    std::vector<std::string> kept;
    const ScanStats stats = scan.Run([&](ScanItem&& item) {
        kept.push_back(item.fname + std::to_string(item.w));
        if (kept.size() == 5) scan.Stop();
    });
    EXPECT_TRUE(stats.stopped);
    EXPECT_EQ(kept, std::vector<std::string>(one.begin(), one.begin() + 5));
    EXPECT_EQ(scan.Progress(), 5u);
}

std::string ReadText(const fs::path& p) {
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}

TEST_F(ScanTest, BatchExtractionNeverReplacesAFile) {
    Camera("IMG_1.JPG", 40);
    Camera("IMG_1.jpeg", 44);  // same target name as the one before
    Camera("a.b.JPG", 32);
    Camera("IMG_2.JPG", 32);
    Camera("plain.jpg", 32, false);
    Text("notes.txt", "x");
    const auto records = BatchExtractor::Collect(Card(), Options());
    ASSERT_EQ(records.size(), 5u);  // notes.txt is no candidate
    EXPECT_TRUE(BatchExtractor::HasThumbnail(records));

    const fs::path out = dir_ / "out";
    fs::create_directories(out);
    std::ofstream(out / "IMG_2.jpg") << "mine";
    const auto report = BatchExtractor::Write(records, Card(), out);
    EXPECT_EQ(report.written, 2u);  // IMG_1.jpg (from IMG_1.JPG) and a.b.jpg
    ASSERT_EQ(report.skipped.size(), 2u);
    EXPECT_EQ(report.skipped[0].fname, "IMG_1.jpeg");
    EXPECT_EQ(report.skipped[1].fname, "IMG_2.JPG");
    EXPECT_EQ(ReadText(out / "IMG_2.jpg"), "mine");
    const std::string written = ReadText(out / "a.b.jpg");
    const Picture pic = JpegCodec::Decode(
        std::span(reinterpret_cast<const std::uint8_t*>(written.data()), written.size()));
    EXPECT_EQ(pic.Width(), 32);
    EXPECT_EQ(ReadText(out / "IMG_1.jpg").size() > 0, true);

    // Into the source folder itself: nothing is written and every thumbnail is reported.
    const auto before = std::distance(fs::directory_iterator(Card()), fs::directory_iterator());
    const auto same = BatchExtractor::Write(records, Card(), dir_ / "card" / ".");
    EXPECT_EQ(same.written, 0u);
    EXPECT_EQ(same.skipped.size(), 4u);
    EXPECT_EQ(std::distance(fs::directory_iterator(Card()), fs::directory_iterator()), before);

    fs::remove_all(Card());
    fs::create_directories(Card());
    Camera("plain.jpg", 32, false);
    EXPECT_FALSE(BatchExtractor::HasThumbnail(BatchExtractor::Collect(Card(), Options())));
}

}  // namespace
}  // namespace lumivex
