#include "atlas/ui/Register.h"

#include "atlas/ZoneHistory.h"
#include "atlas/ui/ACS_Atlas.h"
#include "shell/ui/AppContext.h"

namespace kal::ui {

void RegisterAtlasWindows(AppContext& ctx) {
    ctx.registerWindow(win::ACS_Atlas,
                       [](AppContext& c, QWidget* p) { return new ACS_Atlas(c, p); });
    // The atlas and the zone data are read while the title window shows,
    // so that the first lookup opens as quickly as the later ones.
    ctx.addTitleTask([](AppContext& c) {
        if (!c.session().paths.AtlasAvailable) return;
        c.session().atlas.Index();
        PrepareZoneData();
    });
}

} // namespace kal::ui
