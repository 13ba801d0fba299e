// The program's windows by name: every subsystem's windows are registered
// with the context here, once, when the main window is made.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterProgramWindows(AppContext& ctx);

} // namespace kal::ui
