#include "browser/CameraEject.h"

#include <QCoreApplication>
#include <chrono>
#include <system_error>

#include "browser/Prompter.h"
#include "platform/DiskEjector.h"
#include "platform/MountTable.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {
namespace {

// How long the quit waits for the eject (a busy disk can make it stall).
constexpr std::chrono::milliseconds kEjectWait{20000};

}  // namespace

CameraEject::CameraEject(Prompter& prompter, VolumeWatcher& watcher)
    : prompter_(prompter), watcher_(watcher) {}

std::filesystem::path CameraEject::Script() const {
    if (!script_.empty()) return script_;
    return DiskEjector::ScriptPath(QCoreApplication::applicationDirPath().toStdString());
}

void CameraEject::UnmountCam(QWidget* parent, const std::string& volume, bool enabled) {
    // Still there means still mounted: an emptied mount point may stay behind as a folder.
    // The start-up disk is never ejected.
    if (!enabled || volume.empty() || volume == "/") return;
    if (MountTable::Read().Find(volume) == nullptr) return;
    watcher_.RemoveObserver();  // our own eject is not news to the sidebar
    const std::filesystem::path script = Script();
    std::error_code ec;
    if (!std::filesystem::is_regular_file(script, ec)) {
        prompter_.Message(parent, QStringLiteral("file not found."));
        return;
    }
    const int code = DiskEjector::Run(DiskEjector::Command(script, volume), kEjectWait);
    if (code != 0) prompter_.Message(parent, QStringLiteral("error code: %1").arg(code));
}

}  // namespace lumivex
