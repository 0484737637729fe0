#pragma once
// When the menu items are enabled and shown, decided from what the window tells at the moment
// a menu opens. The thumbnail commands follow the toolbar's buttons, so the toolbar's rules
// stay the one place of that policy. Qt-free.
#include "model/MenuItems.h"

namespace lumivex {

struct MenuState {
    // Toolbar items 601 (export pop-up) and 602 (export all): on the toolbar and enabled.
    bool exportMenuAppeared = false;
    bool exportAllAppeared = false;
    // The selection: 0 none, 1 one thumbnail, 2 several.
    int pCidxFlg = 0;
    // A window that takes copy and select-all for itself is in front (the Exif information).
    bool editTargetInFront = false;
    bool toolbarShown = true;
    // The frame is neither maximised nor full screen, so "位置をリセット" may be offered.
    bool resetAllowed = false;
};

class MenuRules {
  public:
    // Event_EnableMenuItems for one item.
    static bool Enabled(MenuItem item, const MenuState& state);
    // The hidden copy never shows; "位置をリセット" only while Alt is down in a normal frame.
    static bool Visible(MenuItem item, const MenuState& state, bool altDown);
    static const char* ViewAppearTitle(bool toolbarShown);
};

}  // namespace lumivex
