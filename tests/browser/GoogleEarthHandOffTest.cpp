// The hand-off with fake programs that record what they were given: the free edition started
// with the placemark, Google Earth Pro's placemark given to the desktop's opener, and the
// question when nothing is found.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QThread>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "../app/ScriptedPrompter.h"
#include "ScratchDir.h"
#include "browser/GoogleEarthHandOff.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

// A program that writes its first argument to `record` and then copies that file beside it.
fs::path FakeProgram(const fs::path& file, const fs::path& record) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "#!/bin/sh\nprintf '%s' \"$1\" > '" << record.string() << ".tmp'\n"
                        << "cp \"$1\" '" << record.string() << ".kml'\n"
                        << "mv '" << record.string() << ".tmp' '" << record.string() << "'\n";
    ::chmod(file.c_str(), 0755);
    std::ofstream(file.parent_path() / "googleearth-bin") << "";
    return file;
}

std::string ReadAll(const fs::path& file) {
    std::stringstream s;
    s << std::ifstream(file).rdbuf();
    return s.str();
}

// The programs run detached: wait for their record.
bool WaitFor(const fs::path& file) {
    QElapsedTimer t;
    t.start();
    while (!fs::exists(file) && t.elapsed() < 10000)
        QThread::msleep(20);
    return fs::exists(file);
}

struct HandOffFixture {
    fixtures::ScratchDir dir;
    ScriptedPrompter prompter;
    GoogleEarthSettings values;
    GpsPosition position{35.5, -122.25, "IMG_1.JPG"};
    fs::path record = dir.path() / "record";

    GoogleEarthHandOff Make() {
        GoogleEarthHandOff h(prompter, nullptr, GoogleEarthLocator(dir.path() / "root", ""));
        h.kmlFolder = dir.path() / "tmp";
        fs::create_directories(h.kmlFolder);
        h.clock = [] { return std::time_t{1700000000}; };
        return h;
    }
    // What the program was given: a placemark in the scratch folder holding the position.
    void ExpectPlacemarkGiven(const GoogleEarthHandOff& h) {
        ASSERT_TRUE(WaitFor(record));
        const fs::path given = ReadAll(record);
        EXPECT_EQ(given.parent_path(), h.kmlFolder);
        EXPECT_EQ(given.extension(), ".kml");
        const std::string kml = ReadAll(record.string() + ".kml");
        EXPECT_NE(kml.find("<coordinates>-122.25,35.5,0</coordinates>"), std::string::npos) << kml;
        EXPECT_NE(kml.find("<range>750</range>"), std::string::npos) << kml;
    }
};

TEST(GoogleEarthHandOff, FreeEditionIsStartedWithThePlacemark) {
    HandOffFixture f;
    f.values.range = 750;
    f.values.appPath = FakeProgram(f.dir.path() / "root/free/google-earth", f.record).string();
    auto h = f.Make();
    EXPECT_EQ(h.GetGoogleEarthChk(f.values.appPath), GoogleEarthLocator::kScript);
    h.LaunchGEarth(f.values, f.position);
    f.ExpectPlacemarkGiven(h);
    EXPECT_TRUE(f.prompter.asked.isEmpty());
}

TEST(GoogleEarthHandOff, ProPlacemarkGoesToTheDesktopOpener) {
    HandOffFixture f;
    f.values.range = 750;
    f.values.appPath =
        FakeProgram(f.dir.path() / "root/pro/google-earth-pro", f.dir.path() / "no").string();
    // The desktop's opener, found on PATH, stands in for the KML file's handler.
    FakeProgram(f.dir.path() / "bin/xdg-open", f.record);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString((f.dir.path() / "bin").string()) + ":/usr/bin:/bin");
    auto h = f.Make();
    h.LaunchGEarth(f.values, f.position);
    qputenv("PATH", path);
    f.ExpectPlacemarkGiven(h);
    EXPECT_FALSE(fs::exists(f.dir.path() / "no"));
}

TEST(GoogleEarthHandOff, FailuresAndTheSearchAtStart) {
    HandOffFixture f;
    auto h = f.Make();
    // Not a Google Earth: the toolbar command does nothing and says nothing; the context
    // menu's command says so.
    f.values.appPath = (f.dir.path() / "tmp").string();
    h.LaunchGEarth(f.values, f.position);
    EXPECT_TRUE(f.prompter.asked.isEmpty());
    EXPECT_FALSE(h.OpenGEarth(f.values, f.position));
    EXPECT_EQ(f.prompter.asked, QStringList{"Google Earthが見つかりませんでした。"});
    EXPECT_TRUE(fs::is_empty(h.kmlFolder));

    // The placemark cannot be written: nothing is started.
    f.values.appPath = FakeProgram(f.dir.path() / "root/free/google-earth", f.record).string();
    h.kmlFolder = f.dir.path() / "missing";
    f.prompter.asked.clear();
    EXPECT_FALSE(h.OpenGEarth(f.values, f.position));
    EXPECT_EQ(f.prompter.asked, QStringList{"Google Earthに渡すファイルを作成できませんでした。"});

    // Nothing found at start: "OK" keeps the permission, "利用しない" drops it.
    for (const int answer : {Prompter::kAction, Prompter::kCancel}) {
        GoogleEarthSettings s;
        s.appPath = (f.dir.path() / "gone").string();
        f.prompter.asked.clear();
        f.prompter.answers = {answer};
        auto none = GoogleEarthHandOff(f.prompter, nullptr, GoogleEarthLocator(f.dir.path(), ""));
        EXPECT_FALSE(none.GetGoogleEarth(s));
        EXPECT_EQ(f.prompter.asked, QStringList{"Google Earthが見つかりませんでした。"});
        EXPECT_EQ(s.use, answer == Prompter::kAction);
    }
    // Found: stored without a question; switched off: no search at all.
    GoogleEarthSettings s;
    f.prompter.asked.clear();
    EXPECT_TRUE(h.GetGoogleEarth(s));
    EXPECT_EQ(s.appPath, f.values.appPath);
    s = {};
    s.use = false;
    EXPECT_FALSE(f.Make().GetGoogleEarth(s));
    EXPECT_TRUE(s.appPath.empty());
    EXPECT_TRUE(f.prompter.asked.isEmpty());
}

}  // namespace
}  // namespace lumivex
