#include "shell/ui/Register.h"

#include "shell/ui/AppContext.h"
#include "shell/ui/Options.h"
#include "shell/ui/OutputD1.h"
#include "shell/ui/PrntFile.h"

namespace kal::ui {

void RegisterShellWindows(AppContext& ctx) {
    ctx.registerWindow(win::OutputD1, [](AppContext& c, QWidget* p) { return new OutputD1(c, p); });
    ctx.registerWindow(win::Options, [](AppContext& c, QWidget* p) { return new Options(c, p); });
    ctx.registerWindow(win::PrntFile, [](AppContext& c, QWidget* p) { return new PrntFile(c, p); });
}

} // namespace kal::ui
