#pragma once
// Finds Google Earth for Linux and tells which way a position is handed to it. Google Earth
// Pro installs into <root>/pro (the command google-earth-pro); the older free edition lived in
// <root>/free (the command google-earth). Both keep their program beside googleearth-bin.
#include <filesystem>
#include <string>
#include <string_view>

namespace lumivex {

class GoogleEarthLocator {
  public:
    // GetGoogleEarthChk's results.
    static constexpr int kNone = 0;    // missing, or not a Google Earth
    static constexpr int kScript = 1;  // the free edition: launched with the placemark
    static constexpr int kKml = 2;     // Google Earth Pro: the placemark goes to the desktop

    static constexpr std::string_view kProCommand = "google-earth-pro";
    static constexpr std::string_view kFreeCommand = "google-earth";

    // `installRoot` holds the editions' folders; `searchPath` is a PATH value.
    GoogleEarthLocator(std::filesystem::path installRoot, std::string searchPath);
    // /opt/google/earth and the process's PATH.
    static GoogleEarthLocator System();

    // A file counts when the folder of its canonical file holds googleearth-bin; it is the
    // free edition when that folder is <root>/free, and Pro anywhere else.
    int GetGoogleEarthChk(const std::filesystem::path& item) const;

    // The search at start without its question: the stored path when it is a Google Earth,
    // else the earlier path form, else Pro, else the free edition, each first in its install
    // folder and then on PATH. Empty when nothing is found.
    std::filesystem::path Find(const std::string& appPath, const std::string& oldAppPath) const;

    // The first executable file named `command` in the PATH's folders; empty when none.
    std::filesystem::path OnPath(std::string_view command) const;

  private:
    std::filesystem::path Installed(std::string_view edition, std::string_view command) const;

    std::filesystem::path root_;
    std::string path_;
};

}  // namespace lumivex
