// The chart wheel's windows and commands, registered with the context.
#pragma once

namespace kal::ui {

class AppContext;

// Registers Wheels, CWAspect and OrbsEdit, the wheel's reopening after a
// calculation, and the reading of the wheel's tables while the title window
// shows.
void RegisterWheelWindows(AppContext& ctx);

} // namespace kal::ui
