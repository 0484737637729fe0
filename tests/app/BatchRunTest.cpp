// A folder given to the program: its thumbnails go, as JPEG, into the folder the user chooses;
// the user is asked nothing when there is nothing to extract, and hears of what failed.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/BatchRun.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

std::vector<uint8_t> ReadAll(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

class BatchRunTest : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(source_);
        fs::create_directories(target_);
        Settings s;
        s.InitAll();
        options_ = ScanOptions::FromSettings(s);
    }
    void Write(const std::string& name, bool thumbnail = true) {
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "M");
        if (thumbnail) b.JpegThumbnail(160, 120);
        b.Write(source_ / name);
    }
    std::vector<std::string> TargetNames() const {
        std::vector<std::string> names;
        for (const auto& e : fs::directory_iterator(target_))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    fixtures::ScratchDir scratch_;
    fs::path source_ = scratch_.path() / "DCIM";
    fs::path target_ = scratch_.path() / "out";
    ScanOptions options_;
    ScriptedPrompter prompter_;
};

TEST_F(BatchRunTest, WritesEachThumbnailAsJpegUnderItsBodyName) {
    Write("IMG_0001.JPG");
    Write("trip.day.2.jpeg");  // inner dots stay
    Write("NOTHUMB.JPG", false);
    fs::create_directories(source_ / "SUB.JPG");  // passes the name test, gives nothing
    std::ofstream(source_ / "notes.txt") << "x";
    prompter_.files << QString::fromStdString(target_.string());

    BatchRun run(prompter_, options_);
    EXPECT_EQ(run.Run(source_), BatchRun::Outcome::Written);

    EXPECT_EQ(prompter_.asked, QStringList{QString()});  // one folder question, no title
    EXPECT_EQ(TargetNames(), (std::vector<std::string>{"IMG_0001.jpg", "trip.day.2.jpg"}));
    EXPECT_EQ(run.Result().written, 2u);
}

TEST_F(BatchRunTest, AsksNothingWithoutThumbnailsAndWritesNothingWithoutAFolder) {
    struct Case {
        const char* what;
        bool withThumbnail;
        bool answer;
        BatchRun::Outcome outcome;
        int questions;
    };
    const Case cases[] = {
        {"no thumbnail at all", false, true, BatchRun::Outcome::NothingFound, 0},
        {"the folder question cancelled", true, false, BatchRun::Outcome::Cancelled, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        fs::remove_all(source_);
        fs::create_directories(source_);
        Write("A.JPG", false);
        if (c.withThumbnail) Write("B.JPG");
        ScriptedPrompter prompter;
        if (c.answer) prompter.files << QString::fromStdString(target_.string());
        BatchRun run(prompter, options_);
        EXPECT_EQ(run.Run(source_), c.outcome);
        EXPECT_EQ(prompter.asked.size(), c.questions);
        EXPECT_TRUE(TargetNames().empty());
    }
}

TEST_F(BatchRunTest, SaysWhatWasNotWritten) {
    Write("IMG_0001.JPG");
    Write("IMG_0002.JPG");
    const auto source = ReadAll(source_ / "IMG_0001.JPG");

    prompter_.files << QString::fromStdString(source_.string());  // the source itself
    BatchRun same(prompter_, options_);
    EXPECT_EQ(same.Run(source_), BatchRun::Outcome::Written);
    EXPECT_EQ(same.Result().skipped.size(), 2u);
    EXPECT_EQ(ReadAll(source_ / "IMG_0001.JPG"), source);
    ASSERT_EQ(prompter_.asked.size(), 2);
    EXPECT_TRUE(prompter_.asked.at(1).startsWith(QStringLiteral("2件のサムネール")));
}

}  // namespace
}  // namespace lumivex
