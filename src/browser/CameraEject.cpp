#include "browser/CameraEject.h"

#include <QCoreApplication>
#include <QWidget>
#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>

#include "browser/Prompter.h"
#include "platform/DiskEjector.h"
#include "platform/MountTable.h"
#include "sidebar/VolumeWatcher.h"

namespace lumivex {
namespace {

// How long the quit waits for the eject (a busy disk can make it stall).
constexpr std::chrono::milliseconds kEjectWait{20000};

}  // namespace

// What a running eject needs to report back; emptied when the owner goes.
struct CameraEject::Pending {
    std::mutex m;
    Prompter* prompter = nullptr;
};

CameraEject::CameraEject(Prompter& prompter, VolumeWatcher& watcher)
    : prompter_(prompter), watcher_(watcher), pending_(std::make_shared<Pending>()) {
    pending_->prompter = &prompter_;
}

CameraEject::~CameraEject() {
    std::lock_guard lock(pending_->m);
    pending_->prompter = nullptr;
}

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
    std::filesystem::path script;
    if (!FindScript(parent, script)) return;
    const int code = DiskEjector::Run(DiskEjector::Command(script, volume), kEjectWait);
    if (code != 0) prompter_.Message(parent, QStringLiteral("error code: %1").arg(code));
}

bool CameraEject::FindScript(QWidget* parent, std::filesystem::path& script) {
    script = Script();
    std::error_code ec;
    if (std::filesystem::is_regular_file(script, ec)) return true;
    prompter_.Message(parent, QStringLiteral("file not found."));
    return false;
}

void CameraEject::EjectVolume(QWidget* parent, const std::string& volume) {
    std::filesystem::path script;
    if (volume.empty() || volume == "/" || !FindScript(parent, script)) return;
    std::thread([pending = pending_, argv = DiskEjector::Command(script, volume), to = parent] {
        const int code = DiskEjector::Run(argv, kEjectWait);
        // `to` owns this object, so it lives as long as the prompter is set; after that the
        // window has gone and there is nobody to tell.
        std::lock_guard lock(pending->m);
        if (code == 0 || pending->prompter == nullptr) return;
        QMetaObject::invokeMethod(
            to,
            [pending, to, code] {
                if (pending->prompter != nullptr)
                    pending->prompter->Message(to, QStringLiteral("error code: %1").arg(code));
            },
            Qt::QueuedConnection);
    }).detach();
}

}  // namespace lumivex
