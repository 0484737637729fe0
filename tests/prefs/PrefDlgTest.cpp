// The preferences dialog driven through its controls: every page round-trips to the settings
// file, cancel changes nothing, the last page comes back, and "取得..." accepts only Google Earth.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <fstream>

#include "../app/ScriptedPrompter.h"
#include "ScratchDir.h"
#include "prefs/ClrCanvas.h"
#include "prefs/PrefDlg.h"

namespace lumivex {
namespace {

namespace fs = std::filesystem;

struct PrefDlgTest : ::testing::Test {
    fixtures::ScratchDir dir;
    ScriptedPrompter prompter;
    Settings prefs;

    void SetUp() override { prefs.InitAll(); }

    PrefDlg::Context Context(bool alt = false) {
        const fs::path d = dir.path();
        const QString apps = QString::fromStdString(d.string());
        return {prefs, d, prompter, GoogleEarthLocator(d / "earth", ""), alt, QIcon(), apps};
    }
    static void Click(const PrefDlg& dlg, const char* button) {
        dlg.findChild<QPushButton*>(QLatin1String(button))->click();
    }
};

// One edit of a control: a colour, a check box's state, a field's text or a radio button
// turned on; and the setting it must reach.
struct Edit {
    const char* control;
    std::int64_t value;
    const char* text;
    std::size_t slot;
    std::int64_t stored;
};

const Edit kEveryControl[] = {
    // clang-format off
    {"Canvas4", 0x102030, "", pref::kListBackColor, 0x102030},
    {"Canvas1", 0x405060, "", pref::kThumbBackColor, 0x405060},
    {"Canvas2", 0x708090, "", pref::kSelectionColor, 0x708090},
    {"Canvas3", 0xA0B0C0, "", pref::kFolderNameColor, 0xA0B0C0},
    {"CheckBox2", 0, "", pref::kColorFolderNames, 0},
    {"CheckBox3", 0, "", pref::kFollowOrientation, 0}, {"CheckBox6", 1, "", pref::kListNoThumb, 1},
    {"CheckBox10", 1, "", pref::kShowExtension, 1}, {"CheckBox8", 1, "", pref::kDetectCamera, 1},
    {"CheckBox9", 1, "", pref::kEjectAtQuit, 1}, {"CheckBox4", 0, "", pref::kGoogleEarthAllowed, 0},
    {"EditField1", 0, "3500", pref::kGoogleEarthRange, 3500},
    {"EditField2", 0, "30.7", pref::kGoogleEarthTilt, 30},
    {"EditField3", 0, "270", pref::kGoogleEarthHeading, 270},
    {"EditField4", 0, "0.3", pref::kGoogleEarthSpeed, 3},
    {"RadioButton3", 1, "", pref::kVolumeMode, 2}, {"CheckBox1", 0, "", pref::kBeepOnCaution, 0},
    {"CheckBox5", 1, "", pref::kKeepExpert, 1},
    // clang-format on
};

void Apply(const PrefDlg& d, const Edit& e) {
    QObject* w = d.findChild<QWidget*>(QLatin1String(e.control));
    ASSERT_NE(w, nullptr) << e.control;
    if (auto* c = qobject_cast<ClrCanvas*>(w)) c->SetClr(e.value);
    if (auto* b = qobject_cast<QAbstractButton*>(w)) b->setChecked(e.value != 0);
    if (auto* f = qobject_cast<QLineEdit*>(w)) f->setText(QString::fromUtf8(e.text));
}

TEST_F(PrefDlgTest, SaveWritesEachControlToItsOwnSettingInTheFile) {
    // One control at a time, so that two controls crossed over cannot pass.
    for (const Edit& e : kEveryControl) {
        SCOPED_TRACE(e.control);
        fs::remove(dir.path() / "pref");
        prefs.InitAll();
        PrefChanges reported;
        {
            PrefDlg dlg(Context(/*alt=*/true));
            QObject::connect(&dlg, &PrefDlg::PrefsSaved,
                             [&](const PrefChanges& c) { reported = c; });
            Apply(dlg, e);
            Click(dlg, "PushButton2");
        }
        EXPECT_EQ(prefs.gPref[e.slot], e.stored);
        EXPECT_TRUE(fs::exists(dir.path() / "pref"));
        EXPECT_TRUE(reported.Changed(e.slot));
    }
}

TEST_F(PrefDlgTest, ACancelKeepsOnlyTheLastPageShown) {
    // The expert page without its button: shown, with the first button pushed.
    for (const bool alt : {false, true}) {
        prefs.gPref[pref::kPrefsPage] = 5;
        PrefDlg dlg(Context(alt));
        EXPECT_EQ(dlg.windowTitle(), QStringLiteral("環境設定エキスパート"));
        EXPECT_TRUE(dlg.findChild<QAction*>(alt ? "ToolItem6" : "ToolItem1")->isChecked());
        EXPECT_EQ(dlg.findChild<QAction*>("ToolItem6") != nullptr, alt);
    }

    // A page chosen from the toolbar is remembered through a cancel, which keeps every other
    // edit out of the settings and writes no file; the page is shown next time. A switch
    // while shown moves the frame to the page's size, then holds it there.
    prefs.gPref[pref::kPrefsPage] = 0;
    Settings before = prefs;
    QSize moved;
    {
        PrefDlg dlg(Context());
        dlg.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dlg));
        dlg.findChild<QAction*>("ToolItem3")->trigger();
        EXPECT_NE(dlg.minimumSize(), dlg.maximumSize());
        ASSERT_TRUE(QTest::qWaitFor([&] { return dlg.minimumSize() == dlg.maximumSize(); }));
        moved = dlg.size();
        for (const Edit& e : kEveryControl)
            Apply(dlg, e);
        Click(dlg, "PushButton1");
    }
    before.gPref[pref::kPrefsPage] = 2;
    EXPECT_EQ(prefs.gPref, before.gPref);
    EXPECT_FALSE(fs::exists(dir.path() / "pref"));
    PrefDlg again(Context());
    EXPECT_EQ(again.Page(), 2);
    EXPECT_EQ(again.size(), moved);
    EXPECT_TRUE(again.findChild<QAction*>("ToolItem3")->isChecked());
}

TEST_F(PrefDlgTest, ResetButtonsShowTheDefaultsUntilSaved) {
    const QColor h = QApplication::palette().color(QPalette::Active, QPalette::Highlight);
    const std::tuple<const char*, const char*, std::int64_t, std::size_t> resets[] = {
        {"PushButton8", "Canvas4", 0xD7DDE5, pref::kListBackColor},
        {"PushButton4", "Canvas1", 0xFFFFC0, pref::kThumbBackColor},
        {"PushButton5", "Canvas2", h.rgb() & 0xFFFFFF, pref::kSelectionColor},
        {"PushButton7", "Canvas3", 0x0000FF, pref::kFolderNameColor},
    };
    for (const auto& [button, canvas, value, slot] : resets) {
        prefs.gPref[slot] = 0x111111;
        PrefDlg dlg(Context());
        Click(dlg, button);
        EXPECT_EQ(dlg.findChild<ClrCanvas*>(canvas)->Clr(), value) << button;
        EXPECT_EQ(prefs.gPref[slot], 0x111111) << button;
    }
}

TEST_F(PrefDlgTest, ChooseAcceptsOnlyGoogleEarth) {
    const fs::path pro = dir.path() / "earth" / "pro";
    fs::create_directories(pro);
    std::ofstream(pro / "googleearth-bin");
    // Both programs may run; only the one beside googleearth-bin is Google Earth.
    for (const fs::path& program : {pro / "google-earth-pro", dir.path() / "gimp"}) {
        std::ofstream(program) << "#!/bin/sh\n";
        fs::permissions(program, fs::perms::owner_all);
    }
    prefs.gPrefS[pref::kSGoogleEarthApp] = "/old/path";
    // A cancelled chooser leaves the field alone and says nothing.
    const std::tuple<std::string, std::string, bool> cases[] = {
        {(dir.path() / "gimp").string(), "/old/path", true},
        {(pro / "google-earth-pro").string(), (pro / "google-earth-pro").string(), false},
        {"", "/old/path", false},
    };
    for (const auto& [chosen, shown, cautioned] : cases) {
        SCOPED_TRACE(chosen);
        prompter.asked.clear();
        prompter.files = {QString::fromStdString(chosen)};
        if (chosen.empty()) prompter.files.clear();
        PrefDlg dlg(Context());
        Click(dlg, "PushButton6");
        EXPECT_EQ(dlg.findChild<QLineEdit*>("EditField5")->text().toStdString(), shown);
        EXPECT_EQ(prompter.asked.mid(1),
                  cautioned ? QStringList{"Google Earthではありません。"} : QStringList{});
    }
}

}  // namespace
}  // namespace lumivex
