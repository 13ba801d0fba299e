// The main window's contact points with the birth-data windows.
#include "shell/ui/BirthDataHooks.h"

#include "birthdata/ui/BirthDataState.h"
#include "birthdata/ui/Geograph.h"
#include "birthdata/ui/InputD.h"
#include "birthdata/ui/ListEditor.h"
#include "birthdata/ui/Names.h"
#include "birthdata/ui/NewNamesFile.h"
#include "birthdata/ui/TimeZone.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterBirthDataWindows(AppContext& ctx) {
    ctx.registerWindow("InputD", [](AppContext& c, QWidget* p) { return new InputD(c, p); });
    ctx.registerWindow("Names", [](AppContext& c, QWidget* p) { return new Names(c, p); });
    ctx.registerWindow("NameEdit", [](AppContext& c, QWidget* p) { return new NameEdit(c, p); });
    ctx.registerWindow("Geograph", [](AppContext& c, QWidget* p) { return new Geograph(c, p); });
    ctx.registerWindow("LongLat", [](AppContext& c, QWidget* p) { return new LongLat(c, p); });
    ctx.registerWindow("TimeZone", [](AppContext& c, QWidget* p) { return new TimeZone(c, p); });
}

void StartupBirthDataWindows(AppContext& ctx) {
    NamesListState& st = BirthDataState::flags(ctx);
    st.ListLocked = 0;
    st.LockSync = 0;
    st.KeepInputOnReload = 1;
    if (!ctx.isRegistered("InputD")) return;
    ctx.showWindow("InputD");
    if (QWidget* names = ctx.showWindow("Names")) names->activateWindow();
}

void InputCommandWindows(AppContext& ctx) {
    if (ctx.session().chart.ChartName != "Now") BirthDataState::flags(ctx).KeepInputOnReload = 0;
    for (const char* w : {"Wheels", "CWAspect", "MEANINGS", "OutputD1"}) ctx.unloadWindow(w);
    if (!ctx.isRegistered("InputD")) {
        ctx.notAvailable("The natal input window", ctx.mainWindow());
        return;
    }
    auto* input = qobject_cast<InputD*>(ctx.showWindow("InputD"));
    ctx.unloadWindow("Names");
    ctx.showWindow("Names");
    if (input) input->refreshNowDateTime(InputD::CurrentTime());
}

void HouseToggleHideWindows(AppContext& ctx) {
    for (const char* name : {"InputD", "Names", "Geograph"}) ctx.hideWindow(name);
    for (const char* name : {"TimeZone", "frmTip"}) ctx.unloadWindow(name);
}

void CollectInputFields(AppContext& ctx) {
    if (auto* input = ctx.windowAs<InputD>("InputD")) ctx.session().input = input->fields();
}

void MakeNewNamesFile(AppContext& ctx) {
    RunMakeNewNamesFile(ctx, ctx.mainWindow());
}

} // namespace kal::ui
