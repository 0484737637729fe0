#pragma once
// The commands on the selected thumbnails: the three exports and the export of every item,
// the quarter turns, the clipboard, the information window and the hand-off to Google Earth.
// The contextual menu reaches them by its item texts; the toolbar and the menu bar call them by
// name. This object owns the exporter and the hand-off and decides; the window lays the grid
// out and paints when told.
#include <QObject>
#include <QString>
#include <optional>
#include <string>

#include "browser/ExportController.h"
#include "browser/GoogleEarthHandOff.h"
#include "exif/GpsPosition.h"

class QWidget;

namespace lumivex {

class ItemSelection;
class Prompter;
class ScanController;
class ScanProgressStrip;
class ScanWorker;
class Settings;

class ThumbnailCommands : public QObject {
    Q_OBJECT

  public:
    // What the window lends the commands; all of it outlives them.
    struct Window {
        Settings& prefs;
        Prompter& prompter;
        ScanWorker& worker;
        ScanProgressStrip& strip;
        ScanController& scan;
        ItemSelection& selection;
        QWidget* widget;  // parents the dialogs
    };

    explicit ThumbnailCommands(const Window& window,
                               GoogleEarthLocator locator = GoogleEarthLocator::System());

    // A contextual menu item chosen, known by its text. False for a text that is no command.
    bool Canvas1_ContextualMenuAction(const std::string& text);

    void ExportThumbNail(int mode);
    // Asks for a folder and exports every item on the worker; refused while a job runs.
    void ExportThumbNailAll();
    void RotateImageL();
    void RotateImageR();
    bool GenClipboard();
    // The information window of item `index`; nothing when no item is selected.
    void SelFileExifGPS(int index);

    // Whether the one selected picture carries a position; keeps it for the Google Earth
    // commands, which use the position of the last test that said yes.
    bool SetBtnStatGPS(int count);
    // The search at start; what it finds, or the user's "利用しない", goes into the settings.
    // True when Google Earth was found.
    bool GetGoogleEarth();
    // The toolbar's command: by the kind of the application found.
    void LaunchGEarth();
    // The contextual menu's command: the application is started whatever its kind.
    void OpenGEarth();

    ExportController& Exporter() { return exporter_; }
    GoogleEarthHandOff& Earth() { return earth_; }

  signals:
    // Items turned: the grid must flow again and be painted.
    void turned();
    // The export of every item has ended, or was not started after all.
    void exportEnded();

  private:
    bool Beep() const;

    Window w_;
    ExportController exporter_;
    GoogleEarthHandOff earth_;
    std::optional<GpsPosition> position_;
};

}  // namespace lumivex
