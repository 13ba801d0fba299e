// Every window library's registration with the context, in one place: a
// subsystem that brings windows (wheel/ui, report/ui, browsers/ui ...) adds
// its Register... call here, and its menu items find its windows by name.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterProgramWindows(AppContext& ctx);

} // namespace kal::ui
