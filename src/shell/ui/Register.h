// The shell's windows: the data window, the options editor and the print
// window.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterShellWindows(AppContext& ctx);

} // namespace kal::ui
