// The natal report's windows and command: the report viewer, the personal
// header editor and the "Natal Report" command of the main menu.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterReportWindows(AppContext& ctx);

} // namespace kal::ui
