#include "app/Windows.h"

#include "atlas/ui/Register.h"
#include "birthdata/ui/Register.h"
#include "browsers/ui/Register.h"
#include "periphery/ui/Register.h"
#include "report/ui/Register.h"
#include "shell/ui/Register.h"
#include "wheel/ui/Register.h"

namespace kal::ui {

void RegisterProgramWindows(AppContext& ctx) {
    RegisterShellWindows(ctx);
    RegisterBirthDataWindows(ctx);
    RegisterAtlasWindows(ctx);
    RegisterPeripheryWindows(ctx);
    RegisterReportWindows(ctx);
    RegisterBrowserWindows(ctx);
    RegisterWheelWindows(ctx);
}

} // namespace kal::ui
