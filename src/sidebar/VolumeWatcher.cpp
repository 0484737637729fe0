#include "sidebar/VolumeWatcher.h"

#include <QSocketNotifier>

#include "platform/MountMonitor.h"
#include "platform/Volumes.h"

namespace lumivex {

VolumeWatcher::VolumeWatcher(std::function<int()> volumeMode, QObject* parent)
    : QObject(parent),
      volumeMode_(std::move(volumeMode)),
      monitor_(std::make_unique<MountMonitor>()) {
    // The kernel flags a changed mount table as an exceptional condition on the file; a read
    // notifier would fire without end.
    if (monitor_->Fd() >= 0) {
        notifier_ = new QSocketNotifier(monitor_->Fd(), QSocketNotifier::Exception, this);
        connect(notifier_, &QSocketNotifier::activated, this, &VolumeWatcher::OnMountTableChanged);
    }
}

VolumeWatcher::~VolumeWatcher() = default;

void VolumeWatcher::RemoveObserver() {
    delete notifier_;
    notifier_ = nullptr;
}

void VolumeWatcher::OnMountTableChanged() {
    const MountChanges changes = monitor_->Check();
    const int mode = volumeMode_ ? volumeMode_() : 0;
    const std::string user = Volumes::CurrentUser();
    for (const MountEntry& e : changes.unmounted)
        if (Volumes::Shows(e, mode, user)) emit unmounted(QString::fromStdString(e.mountPoint));
    for (const MountEntry& e : changes.mounted)
        if (Volumes::Shows(e, mode, user)) emit mounted(QString::fromStdString(e.mountPoint));
}

}  // namespace lumivex
