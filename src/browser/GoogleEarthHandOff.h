#pragma once
// Shows a picture's position in Google Earth. Google Earth Pro is handed a KML placemark
// through the desktop's handler for KML files; the free edition is started with the placemark
// as its argument. The search at start asks the user only when nothing is found.
#include <QString>
#include <ctime>
#include <filesystem>
#include <functional>

#include "core/GoogleEarthSettings.h"
#include "exif/GpsPosition.h"
#include "platform/GoogleEarthLocator.h"

class QWidget;

namespace lumivex {

class Prompter;

class GoogleEarthHandOff {
  public:
    GoogleEarthHandOff(Prompter& prompter, QWidget* parent,
                       GoogleEarthLocator locator = GoogleEarthLocator::System());

    // The search at start: fills values.appPath with what it finds. When nothing is found the
    // user is told, and "利用しない" clears values.use. True when Google Earth was found.
    bool GetGoogleEarth(GoogleEarthSettings& values);
    int GetGoogleEarthChk(const std::string& path) const;

    // The toolbar command: by the kind of the stored application; nothing, and no word, when
    // it is missing or no Google Earth.
    void LaunchGEarth(const GoogleEarthSettings& values, const GpsPosition& position);
    // The KML route: the placemark goes to the desktop's handler for KML files.
    bool LaunchGEarthPro(const GoogleEarthSettings& values, const GpsPosition& position);
    // The script route, also the context menu's command: the stored application is started
    // with the placemark, whatever its kind.
    bool OpenGEarth(const GoogleEarthSettings& values, const GpsPosition& position);

    // Where placemarks are written: the program's scratch folder unless set.
    std::filesystem::path kmlFolder;
    // The time that names a placemark: now unless set.
    std::function<std::time_t()> clock;

  private:
    // Hands the file to the program the desktop opens KML files with.
    static bool OpenWithDesktop(const QString& file);
    // The placemark file, or empty after telling the user that it could not be made.
    QString WritePlacemark(const GoogleEarthSettings& values, const GpsPosition& position);
    void Tell(const GoogleEarthSettings& values, const QString& message,
              const QString& explanation);

    Prompter& prompter_;
    QWidget* parent_;
    GoogleEarthLocator locator_;
};

}  // namespace lumivex
