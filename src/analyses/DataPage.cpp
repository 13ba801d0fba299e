#include "analyses/DataPage.h"

#include <string>

#include "analyses/CosmicState.h"
#include "analyses/NatalData.h"
#include "analyses/kaltrova_sr.h"
#include "chart/Aspects.h"
#include "shell/Session.h"

namespace kal {

Messages WriteCalculationPage(Session& s) {
    Messages msgs;
    const std::string hyphens(80, '-');
    s.out.ClearDataPage();
    s.out.Append(hyphens);
    ChartHeader(s.chart, s.DateOrder, s.out);
    // The career listing opens with the blank line under the header.
    if (auto m = ListCareerFactors(s.chart, s.AppPath, s.orbs, s.FocusPlanet, s.out))
        msgs.push_back(*m);
    s.out.Append(hyphens);
    if (auto m = ListNatalAspects(s.chart, s.AppPath, s.orbs, s.AspectFound, s.out))
        msgs.push_back(*m);
    s.out.Append(hyphens);
    NatalData(s.chart, s.out);
    s.chart.PlanetLong = s.chart.NatalLong;
    ListCosmicState(s.chart, s.options, s.out);
    s.ShowDataPage();
    return msgs;
}

} // namespace kal
