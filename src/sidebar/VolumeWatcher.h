#pragma once
// Watches the mount table and tells its listeners which listed volumes came and went. The
// kernel reports every mount; only those the volume list would show are passed on, by mount
// point, the removals before the additions.
#include <QObject>
#include <functional>
#include <memory>

class QSocketNotifier;

namespace lumivex {

class MountMonitor;

class VolumeWatcher : public QObject {
    Q_OBJECT

  public:
    // `volumeMode` says which volumes are listed (see Volumes); it is asked at each change.
    explicit VolumeWatcher(std::function<int()> volumeMode, QObject* parent = nullptr);
    ~VolumeWatcher() override;

    // Stops listening to the mount table (before the program ejects a disk itself).
    void RemoveObserver();
    bool Observing() const { return notifier_ != nullptr; }

  signals:
    void unmounted(const QString& mountPoint);
    void mounted(const QString& mountPoint);

  private:
    void OnMountTableChanged();

    std::function<int()> volumeMode_;
    std::unique_ptr<MountMonitor> monitor_;
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace lumivex
