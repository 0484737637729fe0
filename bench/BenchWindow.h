#pragma once
// The main window as the benchmarks run it: default settings, no questions, 1280 by 800,
// shown on the current platform.
#include <QColor>
#include <QTest>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

#include "RealisticCamera.h"

#include "browser/MainWindow.h"
#include "browser/Prompter.h"
#include "core/Settings.h"

namespace bench {

// A folder of n camera files of 200 KB under the current folder, named <prefix>-<n>; kept
// between runs so that later runs find it in the page cache.
inline std::filesystem::path CameraFolder(const std::string& prefix, int n) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::current_path() / (prefix + "-" + std::to_string(n));
    std::error_code ec;
    if (fs::is_directory(dir) &&
        std::distance(fs::directory_iterator(dir), fs::directory_iterator{}) == n)
        return dir;
    fs::remove_all(dir, ec);
    fs::create_directories(dir);
    for (int i = 0; i < n; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "IMG_%05d.JPG", i);
        fixtures::WriteRealisticCamera(
            dir / name, i, 200000, i % 2 ? fixtures::ByteOrder::Big : fixtures::ByteOrder::Little);
    }
    return dir;
}

// Nothing is asked during a measurement; a question would be a fault.
class NoPrompter : public lumivex::Prompter {
  public:
    int Caution(QWidget*, const lumivex::CautionRequest& r, bool) override {
        std::fprintf(stderr, "unexpected question: %s\n", qPrintable(r.message));
        return kCancel;
    }
    void Message(QWidget*, const QString& text) override {
        std::fprintf(stderr, "unexpected message: %s\n", qPrintable(text));
    }
    std::optional<QString> SaveFile(QWidget*, const QString&, const QString&) override {
        return std::nullopt;
    }
    std::optional<QString> ChooseFolder(QWidget*, const QString&) override { return std::nullopt; }
    std::optional<QString> OpenFile(QWidget*, const QString&, const QString&) override {
        return std::nullopt;
    }
    std::optional<QColor> ChooseColor(QWidget*, const QColor&, const QString&) override {
        return std::nullopt;
    }
};

class BenchWindow {
  public:
    // Without Google Earth: its search at start would ask a question.
    BenchWindow() {
        prefs_.InitAll();
        prefs_.gPref[lumivex::pref::kGoogleEarthAllowed] = 0;
    }
    // Starts and shows the window; false when it never became visible.
    bool Show() {
        w_.InitApp();
        w_.resize(1280, 800);
        w_.show();
        return QTest::qWaitForWindowExposed(&w_);
    }
    lumivex::MainWindow& Window() { return w_; }

  private:
    lumivex::Settings prefs_;
    NoPrompter prompter_;
    lumivex::MainWindow w_{prefs_, prompter_};
};

}  // namespace bench
