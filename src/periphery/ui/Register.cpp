#include "periphery/ui/Register.h"

#include "periphery/ui/About.h"
#include "periphery/ui/frmTip.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterPeripheryWindows(AppContext& ctx) {
    ctx.registerWindow(win::About, [](AppContext&, QWidget* p) { return new About(p); });
    ctx.registerWindow(win::frmTip, [](AppContext& c, QWidget* p) { return new frmTip(c, p); });
}

} // namespace kal::ui
