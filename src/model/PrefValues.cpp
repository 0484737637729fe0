#include "model/PrefValues.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/NumberFormat.h"
#include "core/PrefFile.h"

namespace lumivex {

namespace {

bool Flag(const Settings& s, std::size_t slot) {
    return s.gPref[slot] == 1;
}

// The value of a text as the fields read it: leading blanks skipped, anything after the
// number ignored, no number at all gives 0.
double NumberOf(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    if (i < text.size() && text[i] == '+') ++i;
    double value = 0;
    const auto r = std::from_chars(text.data() + i, text.data() + text.size(), value);
    if (r.ec != std::errc() || !std::isfinite(value)) return 0;
    return value;
}

class Writer {
  public:
    explicit Writer(Settings& s) : s_(s) {}
    void Int(std::size_t slot, std::int64_t value) {
        if (s_.gPref[slot] != value) changes_.ints.set(slot);
        s_.gPref[slot] = value;
    }
    void Bool(std::size_t slot, bool value) { Int(slot, value ? 1 : 0); }
    void App(const std::string& path) {
        auto& stored = s_.gPrefS[pref::kSGoogleEarthApp];
        if (stored != path) changes_.googleEarthApp = true;
        stored = path;
    }
    PrefChanges Changes() const { return changes_; }

  private:
    Settings& s_;
    PrefChanges changes_;
};

}  // namespace

std::string PrefValues::SpeedText(std::int64_t tenths) {
    return DefaultText(static_cast<double>(tenths) / 10.0);
}

std::int64_t PrefValues::SpeedTenths(std::string_view text) {
    const double tenths = std::trunc(NumberOf(text) * 10.0);
    constexpr double kMax = static_cast<double>(std::numeric_limits<std::int64_t>::max());
    if (tenths >= kMax) return std::numeric_limits<std::int64_t>::max();
    if (tenths <= -kMax) return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(tenths);
}

int PrefValues::VolumeChoice(std::int64_t stored) {
    return stored == 1 || stored == 2 ? static_cast<int>(stored) : 0;
}

PrefValues PrefValues::From(const Settings& s, bool altHeld) {
    PrefValues v;
    v.listBack = s.gPref[pref::kListBackColor];
    v.thumbBack = s.gPref[pref::kThumbBackColor];
    v.selection = s.gPref[pref::kSelectionColor];
    v.folderName = s.gPref[pref::kFolderNameColor];
    v.colorFolderNames = Flag(s, pref::kColorFolderNames);
    v.followOrientation = Flag(s, pref::kFollowOrientation);
    v.listNoThumb = Flag(s, pref::kListNoThumb);
    v.showExtension = Flag(s, pref::kShowExtension);
    v.detectCamera = Flag(s, pref::kDetectCamera);
    v.ejectAtQuit = Flag(s, pref::kEjectAtQuit);
    v.googleEarthAllowed = Flag(s, pref::kGoogleEarthAllowed);
    v.googleEarthApp = s.gPrefS[pref::kSGoogleEarthApp];
    v.range = DefaultText(s.gPref[pref::kGoogleEarthRange]);
    v.tilt = DefaultText(s.gPref[pref::kGoogleEarthTilt]);
    v.heading = DefaultText(s.gPref[pref::kGoogleEarthHeading]);
    v.speed = SpeedText(s.gPref[pref::kGoogleEarthSpeed]);
    v.volumeMode = VolumeChoice(s.gPref[pref::kVolumeMode]);
    v.beep = Flag(s, pref::kBeepOnCaution);
    v.expert = altHeld || Flag(s, pref::kKeepExpert);
    v.keepExpert = v.expert && Flag(s, pref::kKeepExpert);
    return v;
}

PrefChanges PrefValues::ApplyTo(Settings& s) const {
    Writer w(s);
    w.Int(pref::kListBackColor, listBack);
    w.Int(pref::kThumbBackColor, thumbBack);
    w.Int(pref::kSelectionColor, selection);
    w.Int(pref::kFolderNameColor, folderName);
    w.Bool(pref::kColorFolderNames, colorFolderNames);
    w.Bool(pref::kFollowOrientation, followOrientation);
    w.Bool(pref::kListNoThumb, listNoThumb);
    w.Bool(pref::kShowExtension, showExtension);
    w.Bool(pref::kDetectCamera, detectCamera);
    w.Bool(pref::kEjectAtQuit, ejectAtQuit);
    w.Bool(pref::kGoogleEarthAllowed, googleEarthAllowed);
    w.Int(pref::kGoogleEarthRange, PrefFile::Val(range));
    w.Int(pref::kGoogleEarthTilt, PrefFile::Val(tilt));
    w.Int(pref::kGoogleEarthHeading, PrefFile::Val(heading));
    w.Int(pref::kGoogleEarthSpeed, SpeedTenths(speed));
    w.App(googleEarthApp);
    w.Int(pref::kVolumeMode, VolumeChoice(volumeMode));
    w.Bool(pref::kBeepOnCaution, beep);
    if (expert) w.Bool(pref::kKeepExpert, keepExpert);
    return w.Changes();
}

}  // namespace lumivex
