// The birth-data windows (InputD, Names, NameEdit, Geograph, LongLat,
// TimeZone) and the commands through which the main window reaches them:
// registered with the context at start-up.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterBirthDataWindows(AppContext& ctx);

} // namespace kal::ui
