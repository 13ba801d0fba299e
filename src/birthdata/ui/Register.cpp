#include "birthdata/ui/Register.h"

#include "birthdata/RecordWriter.h"
#include "birthdata/ui/BirthDataState.h"
#include "birthdata/ui/Geograph.h"
#include "birthdata/ui/InputD.h"
#include "birthdata/ui/ListEditor.h"
#include "birthdata/ui/Names.h"
#include "birthdata/ui/TimeZone.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

namespace {

// Start-up: KeepInputOnReload = 1, show InputD, give the focus to Names.
// (The flags ListLocked and LockSync are cleared here too; start-up does
// nothing with them in between.)
void StartupWindows(AppContext& ctx) {
    NamesListState& st = BirthDataState::flags(ctx);
    st.ListLocked = 0;
    st.LockSync = 0;
    st.KeepInputOnReload = 1;
    ctx.showWindow(win::InputD);
    if (QWidget* names = ctx.showWindow(win::Names)) names->activateWindow();
}

// The Input command after its first step (UpdateMode, AllLines and the
// output file name are already reset): clear KeepInputOnReload unless the
// chart's name is "Now"; unload Wheels, CWAspect, MEANINGS and OutputD1;
// show InputD; unload, load and show Names; fill the date and time from the
// clock when the name field holds "Now".
void InputCommandWindows(AppContext& ctx) {
    if (ctx.session().calc.chart.ChartName != "Now")
        BirthDataState::flags(ctx).KeepInputOnReload = 0;
    for (WindowName w : {win::Wheels, win::CWAspect, win::MEANINGS, win::OutputD1})
        ctx.unloadWindow(w);
    auto* input = qobject_cast<InputD*>(ctx.showWindow(win::InputD));
    ctx.unloadWindow(win::Names);
    ctx.showWindow(win::Names);
    if (input) input->refreshNowDateTime(InputD::CurrentTime());
}

// A house-system toggle after the Input command: hide InputD, Names and
// Geograph; unload TimeZone and frmTip.
void HouseToggleWindows(AppContext& ctx) {
    for (WindowName w : {win::InputD, win::Names, win::Geograph}) ctx.hideWindow(w);
    for (WindowName w : {win::TimeZone, win::frmTip}) ctx.unloadWindow(w);
}

// File > "Make new .FIL file": the chosen file is created (replacing an old
// one) with the example record; it does not become the current names file.
void MakeNewNamesFile(AppContext& ctx) {
    QWidget* parent = ctx.mainWindow();
    const QString folder = QString::fromStdString(ctx.session().paths.AppPath.string());
    const QString file = ctx.dialogs().newNamesFile(folder, parent);
    if (file.isEmpty()) return;
    if (WriteResult w = WriteNewNamesFile(file.toStdString()); !w)
        ctx.showMessage(WriteFailedMessage(file.toStdString(), w), parent);
}

} // namespace

void RegisterBirthDataWindows(AppContext& ctx) {
    ctx.registerWindow(win::InputD, [](AppContext& c, QWidget* p) { return new InputD(c, p); });
    ctx.registerWindow(win::Names, [](AppContext& c, QWidget* p) { return new Names(c, p); });
    ctx.registerWindow(win::NameEdit, [](AppContext& c, QWidget* p) { return new NameEdit(c, p); });
    ctx.registerWindow(win::Geograph, [](AppContext& c, QWidget* p) { return new Geograph(c, p); });
    ctx.registerWindow(win::LongLat, [](AppContext& c, QWidget* p) { return new LongLat(c, p); });
    ctx.registerWindow(win::TimeZone, [](AppContext& c, QWidget* p) { return new TimeZone(c, p); });
    ctx.registerCommand(cmd::StartupInputWindows, StartupWindows);
    ctx.registerCommand(cmd::InputCommandWindows, InputCommandWindows);
    ctx.registerCommand(cmd::HouseToggleWindows, HouseToggleWindows);
    ctx.registerCommand(cmd::NewNamesFile, MakeNewNamesFile);
    // A calculation from the data last entered takes what the input window
    // shows.
    ctx.setInputSource([&ctx]() -> std::optional<InputFields> {
        if (auto* input = ctx.windowAs<InputD>(win::InputD)) return input->fields();
        return std::nullopt;
    });
}

} // namespace kal::ui
