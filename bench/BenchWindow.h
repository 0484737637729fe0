#pragma once
// The main window as the benchmarks run it: default settings, no questions, 1280 by 800,
// shown on the current platform.
#include <QTest>
#include <cstdio>

#include "browser/MainWindow.h"
#include "browser/Prompter.h"
#include "core/Settings.h"

namespace bench {

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
};

class BenchWindow {
  public:
    BenchWindow() { prefs_.InitAll(); }
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
