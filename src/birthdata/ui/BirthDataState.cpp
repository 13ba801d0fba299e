#include "birthdata/ui/BirthDataState.h"

#include "shell/ui/AppContext.h"

namespace kal::ui {

BirthDataState& BirthDataState::of(AppContext& ctx) {
    auto* s = ctx.findChild<BirthDataState*>(QString(), Qt::FindDirectChildrenOnly);
    if (!s) s = new BirthDataState(&ctx);
    return *s;
}

} // namespace kal::ui
