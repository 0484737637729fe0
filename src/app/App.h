#pragma once
// The application object: it owns the settings, loads them before the window reads them,
// builds the main window, and on the window's close saves the settings and removes the
// temporary folder. A folder handed to the program is a document-open event, which always
// ends the process.
#include <QObject>
#include <filesystem>
#include <memory>

#include "core/PrefFile.h"
#include "core/Settings.h"

namespace lumivex {

class Prompter;
class MainWindow;

class App : public QObject {
    Q_OBJECT

  public:
    // `settingsFolder` empty means the user's own (PrefFile::DefaultFolder).
    explicit App(Prompter& prompter, std::filesystem::path settingsFolder = {});
    ~App() override;

    // The defaults, then the settings file over them; a folder without a file is said.
    LoadResult InitApp();
    // Makes and shows the main window and runs its start.
    MainWindow* MakeWindow();
    // A folder given to the program: extracted in a batch, then the process ends. Returns
    // the exit status: 1 when thumbnails could not be written, else 0.
    int Event_OpenDocument(const std::filesystem::path& item);
    // The batch extraction of one folder's thumbnails into a folder the user chooses.
    int TNextract(const std::filesystem::path& folder);
    // The settings saved, the temporary folder removed.
    void CloseApp();

    Settings& Prefs() { return prefs_; }
    MainWindow* Window() const { return window_.get(); }
    const std::filesystem::path& SettingsFolder() const { return folder_; }

  private:
    Prompter& prompter_;
    std::filesystem::path folder_;
    Settings prefs_;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace lumivex
