#include "browser/ThumbnailCommands.h"

#include <functional>
#include <map>
#include <utility>

#include "browser/ExifInfoGPS.h"
#include "browser/ScanWorker.h"
#include "core/GoogleEarthSettings.h"
#include "core/Settings.h"
#include "model/ContextMenuItems.h"
#include "model/ItemRotation.h"
#include "model/ItemSelection.h"
#include "model/ScanController.h"

namespace lumivex {

ThumbnailCommands::ThumbnailCommands(const Window& window, GoogleEarthLocator locator)
    : w_(window),
      exporter_(w_.prefs, w_.prompter, w_.worker, w_.strip, w_.scan.Items(), w_.widget),
      earth_(w_.prompter, w_.widget, std::move(locator)) {
    connect(&exporter_, &ExportController::exportFinished, this, &ThumbnailCommands::exportEnded);
}

bool ThumbnailCommands::Canvas1_ContextualMenuAction(const std::string& text) {
    using namespace menutext;
    const std::map<std::string, std::function<void()>> actions{
        {kExportExif, [this] { ExportThumbNail(ExportController::kExif); }},
        {kExportJpeg, [this] { ExportThumbNail(ExportController::kJpeg); }},
        {kExportAs, [this] { ExportThumbNail(ExportController::kAs); }},
        {kRotateLeft, [this] { RotateImageL(); }},
        {kRotateRight, [this] { RotateImageR(); }},
        {kCopy, [this] { GenClipboard(); }},
        {kExifInfo, [this] { SelFileExifGPS(w_.selection.pCidx); }},
        {kGoogleEarth, [this] { OpenGEarth(); }},
    };
    const auto it = actions.find(text);
    if (it == actions.end()) return false;
    it->second();
    return true;
}

// ---- export and clipboard ------------------------------------------------------------------

void ThumbnailCommands::ExportThumbNail(int mode) {
    exporter_.ExportThumbNail(w_.selection.pCidxFlg, w_.selection.pCidx, mode);
}

void ThumbnailCommands::ExportThumbNailAll() {
    if (!w_.scan.BeginExport(w_.worker.Running())) {
        exporter_.Refuse();
        return;
    }
    // Cancelled or nothing to export: no export ends, but a card may have come meanwhile.
    if (!exporter_.ExportThumbNailAll()) emit exportEnded();
}

bool ThumbnailCommands::GenClipboard() {
    return exporter_.GenClipboard(w_.selection.pCidxFlg, w_.selection.pCidx);
}

// ---- turns -----------------------------------------------------------------------------------

void ThumbnailCommands::RotateImageL() {
    if (ItemRotation::RotateImageL(w_.scan.Items(), w_.selection.pCidxFlg, w_.selection.pCidx))
        emit turned();
}

void ThumbnailCommands::RotateImageR() {
    if (ItemRotation::RotateImageR(w_.scan.Items(), w_.selection.pCidxFlg, w_.selection.pCidx))
        emit turned();
}

// ---- information and position ------------------------------------------------------------

void ThumbnailCommands::SelFileExifGPS(int index) {
    const auto& items = w_.scan.Items();
    if (w_.selection.pCidxFlg == 0 || index < 0 || index >= static_cast<int>(items.size())) return;
    ExifInfoGPS::SelFileExifGPS(w_.widget, w_.prompter, items[static_cast<std::size_t>(index)].path,
                                Beep());
}

bool ThumbnailCommands::SetBtnStatGPS(int count) {
    position_.reset();
    const auto& items = w_.scan.Items();
    const int i = w_.selection.pCidx;
    if (i < 0 || i >= static_cast<int>(items.size())) return false;
    position_ =
        ReadGpsPosition(count, w_.selection.pCidxFlg, items[static_cast<std::size_t>(i)].path);
    return position_.has_value();
}

bool ThumbnailCommands::GetGoogleEarth() {
    GoogleEarthSettings values = GoogleEarthSettingsFrom(w_.prefs);
    const bool found = earth_.GetGoogleEarth(values);
    StoreGoogleEarthSettings(values, w_.prefs);
    return found;
}

void ThumbnailCommands::LaunchGEarth() {
    if (position_) earth_.LaunchGEarth(GoogleEarthSettingsFrom(w_.prefs), *position_);
}

void ThumbnailCommands::OpenGEarth() {
    if (position_) earth_.OpenGEarth(GoogleEarthSettingsFrom(w_.prefs), *position_);
}

bool ThumbnailCommands::Beep() const {
    return w_.prefs.gPref[pref::kBeepOnCaution] == 1;
}

}  // namespace lumivex
