#include "analyses/Listings.h"

#include <string>

#include "analyses/CosmicState.h"
#include "analyses/NatalData.h"
#include "analyses/kaltrova_sr.h"

namespace kal {

Messages NatalDataListing(const Chart& c, ListingTables&, OutputBuffer& out) {
    NatalData(c, out);
    return {};
}

Messages NatalAspectsListing(const Chart& c, ListingTables& t, OutputBuffer& out) {
    return ListNatalAspects(c, t.orbFolder, t.orbs, t.aspectFound, out);
}

Messages CosmicStateListing(const Chart& c, ListingTables& t, OutputBuffer& out) {
    ListCosmicState(c, t.options, out);
    return {};
}

Messages CareerFactorsListing(const Chart& c, ListingTables& t, OutputBuffer& out) {
    return ListCareerFactors(c, t.orbFolder, t.orbs, t.focusPlanet, out);
}

Messages CalculationPage(const Chart& c, ListingTables& t, OutputBuffer& out) {
    Messages msgs;
    auto add = [&](Messages m) { msgs.insert(msgs.end(), m.begin(), m.end()); };
    const std::string hyphens(80, '-');
    out.Append(hyphens);
    ChartHeader(c, t.dateOrder, out);
    // The career listing opens with the blank line under the header.
    add(CareerFactorsListing(c, t, out));
    out.Append(hyphens);
    add(NatalAspectsListing(c, t, out));
    out.Append(hyphens);
    NatalDataListing(c, t, out);
    CosmicStateListing(c, t, out);
    return msgs;
}

} // namespace kal
