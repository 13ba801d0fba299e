// The browsers' windows: the meanings window, the keywords grid and
// delineation by keywords.
#pragma once

namespace kal::ui {

class AppContext;

void RegisterBrowserWindows(AppContext& ctx);

} // namespace kal::ui
