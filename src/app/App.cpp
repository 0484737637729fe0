#include "app/App.h"

#include <QGuiApplication>
#include <QPalette>

#include "app/BatchRun.h"
#include "browser/MainWindow.h"
#include "browser/Prompter.h"
#include "core/FileServices.h"

namespace lumivex {
namespace {

constexpr const char* kTemporaryFolderName = "com.ZenmoraWorksJP.LumivexPlus";

// The selection colour a user has not chosen follows the desktop's own highlight, so the
// grid's frames look like selections elsewhere on the desktop.
std::int64_t DesktopHighlight() {
    if (QGuiApplication::instance() == nullptr) return Settings::kDefaultHighlight;
    return QGuiApplication::palette().color(QPalette::Highlight).rgb() & 0xFFFFFF;
}

}  // namespace

App::App(Prompter& prompter, std::filesystem::path settingsFolder)
    : prompter_(prompter),
      folder_(settingsFolder.empty() ? PrefFile::DefaultFolder() : std::move(settingsFolder)) {}

App::~App() = default;

LoadResult App::InitApp() {
    const std::int64_t highlight = DesktopHighlight();
    prefs_.InitAll(highlight);
    const LoadResult r = PrefFile::LoadPref(prefs_, folder_, highlight);
    if (r == LoadResult::NoFile)
        prompter_.Message(nullptr, QString::fromUtf8(PrefFile::kNoFileMessage.data(),
                                                     PrefFile::kNoFileMessage.size()));
    return r;
}

MainWindow* App::MakeWindow() {
    window_ = std::make_unique<MainWindow>(prefs_, prompter_);
    connect(window_.get(), &MainWindow::closing, this, &App::CloseApp);
    window_->SetSettingsFolder(folder_);
    window_->InitApp();
    window_->show();
    return window_.get();
}

int App::Event_OpenDocument(const std::filesystem::path& item) {
    // Whatever happens here, the caller ends the process: a document is never browsed.
    if (!gFileMatch(item, "MACS", "fold")) return 0;
    return TNextract(item);
}

int App::TNextract(const std::filesystem::path& folder) {
    BatchRun run(prompter_, ScanOptions::FromSettings(prefs_));
    const BatchRun::Outcome outcome = run.Run(folder);
    const bool lost = outcome == BatchRun::Outcome::Failed || !run.Result().skipped.empty();
    return lost ? 1 : 0;
}

void App::CloseApp() {
    PrefFile::SavePref(prefs_, folder_);
    std::error_code ec;
    const auto temp = std::filesystem::temp_directory_path(ec);
    if (!ec) gDeleteEntireFolder(temp / kTemporaryFolderName, false);
}

}  // namespace lumivex
