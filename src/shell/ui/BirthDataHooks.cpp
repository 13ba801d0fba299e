// The main window's contact points with the birth-data windows. Until those
// windows are registered, the commands that need them say so.
#include "shell/ui/BirthDataHooks.h"

#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterBirthDataWindows(AppContext&) {}

void StartupBirthDataWindows(AppContext& ctx) {
    // Quiet at start-up: the main window opens without them.
    if (!ctx.isRegistered("InputD")) return;
    ctx.showWindow("InputD");
    if (QWidget* names = ctx.showWindow("Names")) names->activateWindow();
}

void InputCommandWindows(AppContext& ctx) {
    for (const char* name : {"Wheels", "CWAspect", "MEANINGS", "OutputD1"}) ctx.unloadWindow(name);
    if (!ctx.isRegistered("InputD")) {
        ctx.notAvailable("The natal input window", ctx.mainWindow());
        return;
    }
    ctx.showWindow("InputD");
    ctx.unloadWindow("Names");
    ctx.showWindow("Names");
}

void HouseToggleHideWindows(AppContext& ctx) {
    for (const char* name : {"InputD", "Names", "Geograph"}) ctx.hideWindow(name);
    for (const char* name : {"TimeZone", "frmTip"}) ctx.unloadWindow(name);
}

void CollectInputFields(AppContext&) {}

void MakeNewNamesFile(AppContext& ctx) {
    ctx.notAvailable("Make new .FIL file", ctx.mainWindow());
}

} // namespace kal::ui
