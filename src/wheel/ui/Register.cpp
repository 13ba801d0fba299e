#include "wheel/ui/Register.h"

#include <memory>

#include "shell/ui/AppContext.h"
#include "wheel/WheelTables.h"
#include "wheel/ui/CWAspect.h"
#include "wheel/ui/OrbsEdit.h"
#include "wheel/ui/Wheels.h"

namespace kal::ui {

void RegisterWheelWindows(AppContext& ctx) {
    // HCDATA.DAT and RADIUS.DAT, read once at start-up, for every wheel
    // window of the run.
    auto tables = std::make_shared<WheelTables>();
    ctx.addTitleTask([tables](AppContext& c) {
        if (auto m = LoadWheelTables(c.session().paths.AppPath, *tables)) c.showMessage(*m);
    });
    ctx.registerWindow(win::Wheels,
                       [tables](AppContext& c, QWidget* p) { return new Wheels(c, *tables, p); });
    ctx.registerWindow(win::CWAspect, [](AppContext& c, QWidget* p) { return new CWAspect(c, p); });
    ctx.registerWindow(win::OrbsEdit, [](AppContext& c, QWidget* p) { return new OrbsEdit(c, p); });
    ctx.registerCommand(cmd::ReopenWheel, [](AppContext& c) {
        if (auto* w = c.windowAs<Wheels>(win::Wheels))
            w->Reopen();
        else
            c.showWindow(win::Wheels);
    });
}

} // namespace kal::ui
