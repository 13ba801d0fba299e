// The atlas window ACS_Atlas, registered with the context at start-up.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterAtlasWindows(AppContext& ctx);

} // namespace kal::ui
