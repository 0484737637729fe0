// A folder given to the program: its thumbnails go, as JPEG, into the folder the user chooses;
// the user is asked nothing when there is nothing to extract, and hears of what failed.
#include <gtest/gtest.h>

#include <filesystem>

#include "CameraFiles.h"
#include "ScratchDir.h"
#include "ScriptedPrompter.h"
#include "app/BatchRun.h"
#include "core/Settings.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

TEST(BatchRunTest, AsksForAFolderOnlyWithThumbnailsAndSaysWhatWasNotWritten) {
    fixtures::ScratchDir scratch;
    const fs::path source = scratch.path() / "DCIM", target = scratch.path() / "out";
    fs::create_directories(target);
    Settings prefs;
    prefs.InitAll();
    ScriptedPrompter prompter;
    BatchRun run(prompter, ScanOptions::FromSettings(prefs));

    fixtures::WriteCameraFolder(source, {"NOTHUMB.JPG"}, 0);
    EXPECT_EQ(run.Run(source), BatchRun::Outcome::NothingFound);
    EXPECT_TRUE(prompter.asked.isEmpty());

    fixtures::WriteCameraFolder(source, {"IMG_0001.JPG", "trip.day.2.jpeg"});
    EXPECT_EQ(run.Run(source), BatchRun::Outcome::Cancelled);  // no folder chosen
    EXPECT_TRUE(fs::is_empty(target));
    prompter.files = {QString::fromStdString(target.string())};
    EXPECT_EQ(run.Run(source), BatchRun::Outcome::Written);
    EXPECT_EQ(prompter.asked, QStringList({QString(), QString()}));  // the chooser has no title
    EXPECT_EQ(std::distance(fs::directory_iterator(target), {}), 2);
    EXPECT_TRUE(fs::exists(target / "IMG_0001.jpg"));
    EXPECT_TRUE(fs::exists(target / "trip.day.2.jpg"));  // inner dots stay

    prompter.files = {QString::fromStdString(source.string())};  // the source itself
    EXPECT_EQ(run.Run(source), BatchRun::Outcome::Written);
    EXPECT_EQ(run.Result().skipped.size(), 2u);
    EXPECT_TRUE(prompter.asked.back().startsWith(QStringLiteral("2件のサムネール")));
}

}  // namespace
}  // namespace lumivex
