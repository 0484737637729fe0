// The hand-off with fake programs that record the file they were given, the failures, and the
// question when nothing is found.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QTest>
#include <fstream>

#include "../app/ScriptedPrompter.h"
#include "ReadBack.h"
#include "ScratchDir.h"
#include "browser/GoogleEarthHandOff.h"
#include "core/KmlPlacemark.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

struct GoogleEarthHandOffTest : ::testing::Test {
    fixtures::ScratchDir dir;
    ScriptedPrompter prompter;
    GoogleEarthSettings values;
    GoogleEarthHandOff h{prompter, nullptr, GoogleEarthLocator(dir.path() / "root", "")};
    const GpsPosition position{35.5, -122.25, "IMG_1.JPG"};

    void SetUp() override {
        values.range = 750;
        h.kmlFolder = dir.path();
    }
    // A program, beside googleearth-bin, that copies the file it is given to dir/`record`.
    std::string Program(const std::string& name, const std::string& record) {
        const fs::path file = dir.path() / name, to = dir.path() / record;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\ncp \"$1\" " << to << ".t && mv " << to << ".t " << to;
        ::chmod(file.c_str(), 0755);
        std::ofstream(file.parent_path() / "googleearth-bin");
        return file.string();
    }
    // The programs run detached: wait for the record.
    std::string Given(const std::string& record) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(dir.path() / record); }, 10000));
        return fixtures::ReadText(dir.path() / record);
    }
};

TEST_F(GoogleEarthHandOffTest, EachEditionGetsThePlacemarkItsWay) {
    const std::string want = KmlPlacemark::Text("IMG_1.JPG", 35.5, -122.25, values);
    values.appPath = Program("root/free/google-earth", "free");
    h.LaunchGEarth(values, position);
    EXPECT_EQ(Given("free"), want);

    // Pro's placemark goes to the desktop's opener, not to Pro itself.
    values.appPath = Program("root/pro/google-earth-pro", "pro");
    Program("bin/xdg-open", "opener");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((dir.path() / "bin").string()) + ":/usr/bin:/bin");
    h.LaunchGEarth(values, position);
    qputenv("PATH", path);
    EXPECT_EQ(Given("opener"), want);
    EXPECT_TRUE(prompter.asked.isEmpty());
}

TEST_F(GoogleEarthHandOffTest, FailuresAndTheSearchAtStart) {
    // Not a Google Earth: the toolbar command says nothing, the context menu's says so (one of
    // the three questions counted below).
    values.appPath = dir.path().string();
    h.LaunchGEarth(values, position);
    EXPECT_FALSE(h.OpenGEarth(values, position));
    // Nothing found at start: "OK" keeps the permission, "利用しない" drops it.
    for (const int answer : {Prompter::kAction, Prompter::kCancel}) {
        GoogleEarthSettings s;
        prompter.answers = {answer};
        EXPECT_FALSE(h.GetGoogleEarth(s));
        EXPECT_EQ(s.use, answer == Prompter::kAction);
    }
    EXPECT_EQ(prompter.asked, QStringList(3, "Google Earthが見つかりませんでした。"));
    // Found: stored without a question; switched off: no search.
    GoogleEarthSettings s, off;
    values.appPath = Program("root/free/google-earth", "free");
    EXPECT_TRUE(h.GetGoogleEarth(s));
    EXPECT_EQ(s.appPath, values.appPath);
    off.use = false;
    EXPECT_FALSE(h.GetGoogleEarth(off));
    // The placemark cannot be written.
    h.kmlFolder = dir.path() / "missing";
    EXPECT_FALSE(h.OpenGEarth(values, position));
    EXPECT_EQ(prompter.asked.size(), 4);
    EXPECT_EQ(prompter.asked.last(), "Google Earthに渡すファイルを作成できませんでした。");
}

}  // namespace
}  // namespace lumivex
