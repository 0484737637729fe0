#include "model/CommandState.h"

namespace lumivex {

bool CommandState::Enabled(int tag) const {
    const auto it = enabled_.find(tag);
    return it != enabled_.end() && it->second;
}

void CommandState::ToolbarItemEnableSet(int tag, bool enabled) {
    enabled_[tag] = enabled;
    for (const Listener& listener : listeners_)
        listener(tag, enabled);
}

void CommandState::SetBtnStat(int state, bool googleEarthAllowed, const GpsProbe& gps) {
    if (state == 0 || state == 1 || state == 2) {
        const bool on = state != 0;
        ToolbarItemEnableSet(kExportMenu, on);
        ToolbarItemEnableSet(kRotateLeft, on);
        ToolbarItemEnableSet(kRotateRight, on);
        // The information window shows one file; several selected items close it.
        ToolbarItemEnableSet(kExifInfo, state == 1);
    }
    // The probe reads the selected file, so it is asked only when the setting allows the
    // command at all.
    const bool earth = googleEarthAllowed && gps && gps(state);
    ToolbarItemEnableSet(kGoogleEarth, earth);
}

void CommandState::SetBtnStatAll(bool enable) {
    ToolbarItemEnableSet(kExportAll, enable);
}

}  // namespace lumivex
