#pragma once
// What the menu bar asks of the program: the state its enable rules read, and one handler
// per command, named after its menu item. The window (and for the items that work without a
// window, the application) implements it; the menu bar knows nothing else of either.
#include "model/MenuRules.h"

namespace lumivex {

class MenuCommands {
  public:
    virtual ~MenuCommands() = default;

    // Read each time a menu opens or a shortcut is about to be matched.
    virtual MenuState MenuStateNow() const = 0;

    virtual void _FileExportExif_Action() = 0;
    virtual void _FileExportJpeg_Action() = 0;
    virtual void _FileExportSaveAs_Action() = 0;
    virtual void _FileExportJpegAll_Action() = 0;
    virtual void _FileQuit_Action() = 0;
    // Copy and select-all go to the window in front: the Exif information when it is.
    virtual void _EditCopy_Action() = 0;
    virtual void _EditSelectAll_Action() = 0;
    virtual void _EditPref_Action() = 0;
    virtual void _ViewReload_Action() = 0;
    // Shows or hides the toolbar; the menu then reads toolbarShown for its title.
    virtual void _ViewAppear_Action() = 0;
    virtual void _ViewCustomize_Action() = 0;
    virtual void _ThmbL_Action() = 0;
    virtual void _ThmbR_Action() = 0;
    virtual void _WinCollapse_Action() = 0;
    virtual void _WinZoom_Action() = 0;
    virtual void _WinReset_Action() = 0;
    virtual void _WinBringAllFront_Action() = 0;
    virtual void _WinWindow1_Action() = 0;
    virtual void _HelpHome_Action() = 0;
    virtual void _HelpReadme_Action() = 0;
    virtual void _HelpHelpbook_Action() = 0;
    virtual void _AppleAbout_Action() = 0;
};

}  // namespace lumivex
