#pragma once
// The eject of the camera card at quit: the volume on which camera media was found is
// ejected with the eject script when the settings ask for it and it is still mounted. A
// failure is reported and the quit goes on.
#include <QString>
#include <filesystem>
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
    // Ejects `volume` when `enabled`; messages go to `parent`.
    void UnmountCam(QWidget* parent, const std::string& volume, bool enabled);

  private:
    std::filesystem::path Script() const;

    Prompter& prompter_;
    VolumeWatcher& watcher_;
    std::filesystem::path script_;
};

}  // namespace lumivex
