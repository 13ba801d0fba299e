// The periphery's windows: the about window and the tip of the day (later
// the personal header editor).
#pragma once

namespace kal::ui {

class AppContext;

void RegisterPeripheryWindows(AppContext& ctx);

} // namespace kal::ui
