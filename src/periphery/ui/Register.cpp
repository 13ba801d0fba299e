#include "periphery/ui/Register.h"

#include "periphery/ui/About.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterPeripheryWindows(AppContext& ctx) {
    ctx.registerWindow(win::About, [](AppContext&, QWidget* p) { return new About(p); });
}

} // namespace kal::ui
