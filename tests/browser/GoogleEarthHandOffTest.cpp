// The hand-off with fake programs that record what they were given: the free edition started
// with the placemark, Google Earth Pro's placemark given to the desktop's opener, the failures
// and the question when nothing is found.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QThread>
#include <fstream>
#include <sstream>

#include "../app/ScriptedPrompter.h"
#include "ScratchDir.h"
#include "browser/GoogleEarthHandOff.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

std::string ReadAll(const fs::path& file) {
    std::stringstream s;
    s << std::ifstream(file).rdbuf();
    return s.str();
}

struct GoogleEarthHandOffTest : ::testing::Test {
    fixtures::ScratchDir dir;
    fs::path record = dir.path() / "record";
    ScriptedPrompter prompter;
    GoogleEarthSettings values;
    GoogleEarthHandOff h{prompter, nullptr, GoogleEarthLocator(dir.path() / "root", "")};

    void SetUp() override {
        values.range = 750;
        h.kmlFolder = dir.path() / "tmp";
        fs::create_directories(h.kmlFolder);
    }
    // A program, beside googleearth-bin, that copies the file it is given to `to`.
    std::string Program(const std::string& name, std::string to = {}) {
        if (to.empty()) to = record.string();
        const fs::path file = dir.path() / name;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\ncp \"$1\" '" << to << ".t'\nmv '" << to << ".t' '" << to
                            << "'\n";
        ::chmod(file.c_str(), 0755);
        std::ofstream(file.parent_path() / "googleearth-bin");
        return file.string();
    }
    // The programs run detached: wait for the record, a placemark holding the position.
    void ExpectPlacemarkGiven() {
        QElapsedTimer t;
        t.start();
        while (!fs::exists(record) && t.elapsed() < 10000)
            QThread::msleep(20);
        const std::string kml = ReadAll(record);
        EXPECT_NE(kml.find("<coordinates>-122.25,35.5,0</coordinates>"), std::string::npos) << kml;
        EXPECT_NE(kml.find("<range>750</range>"), std::string::npos) << kml;
    }
    const GpsPosition position{35.5, -122.25, "IMG_1.JPG"};
};

TEST_F(GoogleEarthHandOffTest, FreeEditionIsStartedWithThePlacemark) {
    values.appPath = Program("root/free/google-earth");
    h.LaunchGEarth(values, position);
    ExpectPlacemarkGiven();
    EXPECT_TRUE(prompter.asked.isEmpty());
}

TEST_F(GoogleEarthHandOffTest, ProPlacemarkGoesToTheDesktopOpener) {
    values.appPath = Program("root/pro/google-earth-pro", record.string() + ".pro");
    Program("bin/xdg-open");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((dir.path() / "bin").string()) + ":/usr/bin:/bin");
    h.LaunchGEarth(values, position);
    qputenv("PATH", path);
    ExpectPlacemarkGiven();
    EXPECT_FALSE(fs::exists(record.string() + ".pro"));
}

TEST_F(GoogleEarthHandOffTest, FailuresAndTheSearchAtStart) {
    // Not a Google Earth: the toolbar command says nothing, the context menu's says so.
    values.appPath = h.kmlFolder.string();
    h.LaunchGEarth(values, position);
    EXPECT_TRUE(prompter.asked.isEmpty());
    EXPECT_FALSE(h.OpenGEarth(values, position));
    EXPECT_EQ(prompter.asked, QStringList{"Google Earthが見つかりませんでした。"});
    EXPECT_TRUE(fs::is_empty(h.kmlFolder));

    // Nothing found at start: "OK" keeps the permission, "利用しない" drops it.
    for (const int answer : {Prompter::kAction, Prompter::kCancel}) {
        GoogleEarthSettings s;
        prompter.asked.clear();
        prompter.answers = {answer};
        EXPECT_FALSE(h.GetGoogleEarth(s));
        EXPECT_EQ(prompter.asked, QStringList{"Google Earthが見つかりませんでした。"});
        EXPECT_EQ(s.use, answer == Prompter::kAction);
    }
    // Found: stored without a question; switched off: no search at all.
    GoogleEarthSettings s;
    prompter.asked.clear();
    values.appPath = Program("root/free/google-earth");
    EXPECT_TRUE(h.GetGoogleEarth(s));
    EXPECT_EQ(s.appPath, values.appPath);
    s = {};
    s.use = false;
    EXPECT_FALSE(h.GetGoogleEarth(s));
    EXPECT_TRUE(s.appPath.empty());
    EXPECT_TRUE(prompter.asked.isEmpty());

    // The placemark cannot be written.
    h.kmlFolder = dir.path() / "missing";
    EXPECT_FALSE(h.OpenGEarth(values, position));
    EXPECT_EQ(prompter.asked, QStringList{"Google Earthに渡すファイルを作成できませんでした。"});
}

}  // namespace
}  // namespace lumivex
