#include "browsers/ui/BrowserState.h"

#include "shell/ui/AppContext.h"

namespace kal::ui {

BrowserState& BrowserState::of(AppContext& ctx) {
    auto* s = ctx.findChild<BrowserState*>(QString(), Qt::FindDirectChildrenOnly);
    if (!s) s = new BrowserState(&ctx);
    return *s;
}

void ShowBrowserPage(AppContext& ctx, const Messages& messages, QWidget* parent) {
    // The page is shown also when its file was missing: it then holds the
    // blank line it opens with.
    Messages told = messages;
    ctx.writeDataPage(told);
    ctx.showMessages(told, parent);
    ctx.showDataPage();
}

} // namespace kal::ui
