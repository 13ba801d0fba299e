// The periphery's windows: the about window (later the tip of the day and
// the personal header editor).
#pragma once

namespace kal::ui {

class AppContext;

void RegisterPeripheryWindows(AppContext& ctx);

} // namespace kal::ui
