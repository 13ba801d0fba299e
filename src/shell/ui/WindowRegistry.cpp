// One line per subsystem: a window registered here is what its menu item
// opens; a name that is not registered answers "... is not available yet.".
#include "shell/ui/WindowRegistry.h"

#include "periphery/ui/About.h"
#include "shell/ui/AppContext.h"
#include "shell/ui/BirthDataHooks.h"
#include "shell/ui/Options.h"
#include "shell/ui/OutputD1.h"
#include "shell/ui/PrntFile.h"

namespace kal::ui {

void RegisterProgramWindows(AppContext& ctx) {
    // The shell: data window, options editor, print window.
    ctx.registerWindow("OutputD1", [](AppContext& c, QWidget* p) { return new OutputD1(c, p); });
    ctx.registerWindow("Options", [](AppContext& c, QWidget* p) { return new Options(c, p); });
    ctx.registerWindow("PrntFile", [](AppContext& c, QWidget* p) { return new PrntFile(c, p); });
    // The periphery: about window.
    ctx.registerWindow("About", [](AppContext&, QWidget* p) { return new About(p); });
    // Birth data: InputD, Names, NameEdit, Geograph, LongLat, TimeZone.
    RegisterBirthDataWindows(ctx);
}

} // namespace kal::ui
