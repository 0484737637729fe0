#pragma once
// The eject of the camera card at quit: the volume on which camera media was found is
// ejected with the eject script when the settings ask for it and it is still mounted. A
// failure is reported and the quit goes on. The user may also eject a volume at any time; the
// script then runs on a thread of its own, so the window goes on while the disk is written out.
#include <QString>
#include <filesystem>
#include <memory>
#include <string>

class QWidget;

namespace lumivex {

class Prompter;
class VolumeWatcher;

class CameraEject {
  public:
    // `prompter` and `watcher` outlive the object.
    CameraEject(Prompter& prompter, VolumeWatcher& watcher);

    // The eject script; by default beside the executable's folder, in share/lumivex-plus.
    void SetScript(const std::filesystem::path& script) { script_ = script; }
    ~CameraEject();
    CameraEject(const CameraEject&) = delete;
    CameraEject& operator=(const CameraEject&) = delete;

    // Ejects `volume` when `enabled`; messages go to `parent`.
    void UnmountCam(QWidget* parent, const std::string& volume, bool enabled);
    // Ejects `volume` now, off the main thread; a failure is reported over `parent` (the window
    // that owns this object) when the script ends. The volume's row goes when the unmount is
    // seen, not here.
    void EjectVolume(QWidget* parent, const std::string& volume);

  private:
    struct Pending;
    std::filesystem::path Script() const;
    // The script to run, or nothing after "file not found." was shown.
    bool FindScript(QWidget* parent, std::filesystem::path& script);

    Prompter& prompter_;
    VolumeWatcher& watcher_;
    std::filesystem::path script_;
    std::shared_ptr<Pending> pending_;  // shared with running ejects, which may outlive us
};

}  // namespace lumivex
