#include "browsers/ui/Register.h"

#include "browsers/ui/KEY_WORD.h"
#include "browsers/ui/Keywords.h"
#include "browsers/ui/MEANINGS.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterBrowserWindows(AppContext& ctx) {
    ctx.registerWindow(win::MEANINGS, [](AppContext& c, QWidget* p) { return new MEANINGS(c, p); });
    ctx.registerWindow(win::Keywords, [](AppContext& c, QWidget* p) { return new Keywords(c, p); });
    ctx.registerWindow(win::KEY_WORD, [](AppContext& c, QWidget* p) { return new KEY_WORD(c, p); });
}

} // namespace kal::ui
