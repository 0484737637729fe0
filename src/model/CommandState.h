#pragma once
// Which commands are enabled, by toolbar tag (601 export menu, 602 export all, 603 rotate left,
// 604 rotate right, 605 Exif information, 606 Google Earth). The toolbar and the menus read
// it; the selection writes it. Qt-free. Listeners hear of every set, also of one that leaves
// the tag as it was, so a listener may simply apply what it is told.
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace lumivex {

class CommandState {
  public:
    static constexpr int kExportMenu = 601;
    static constexpr int kExportAll = 602;
    static constexpr int kRotateLeft = 603;
    static constexpr int kRotateRight = 604;
    static constexpr int kExifInfo = 605;
    static constexpr int kGoogleEarth = 606;

    using Listener = std::function<void(int tag, bool enabled)>;
    // Says whether the Google Earth command is open for a selection state (0, 1 or 2).
    using GpsProbe = std::function<bool(int state)>;

    // A tag never set is off.
    bool Enabled(int tag) const;
    void ToolbarItemEnableSet(int tag, bool enabled);
    // Selection state 0, 1 or 2 sets 601, 603, 604, 605; any other state leaves them. Then
    // 606 follows `gps` when Google Earth is allowed, else it is off (an empty probe says no).
    void SetBtnStat(int state, bool googleEarthAllowed, const GpsProbe& gps);
    void SetBtnStatAll(bool enable);

    void AddListener(Listener listener) { listeners_.push_back(std::move(listener)); }

  private:
    std::map<int, bool> enabled_;
    std::vector<Listener> listeners_;
};

}  // namespace lumivex
