// The listings of the Data menu and the page of a calculation, as functions
// of the chart: each appends its lines to the page and returns the messages
// to show (a listing whose orb file cannot be read is refused and appends
// nothing). None changes the chart.
#pragma once

#include <filesystem>
#include <functional>

#include "base/Message.h"
#include "base/Options.h"
#include "base/OutputBuffer.h"
#include "chart/Aspects.h"
#include "chart/Chart.h"

namespace kal {

// What the listings read besides the chart, and what they keep from one run
// to the next (the session holds the state; this is a view of it).
struct ListingTables {
    // The folder of NATAL.ORB and Dravik_Natal_Orbs.ORB, read at every use.
    const std::filesystem::path& orbFolder;
    const Options& options; // the cosmic state's points
    int dateOrder;          // of the header's date
    OrbTables& orbs;        // the orb tables as last read
    AspectFoundTable& aspectFound;
    short& focusPlanet; // the career listing's focus
};

using Listing = std::function<Messages(const Chart&, ListingTables&, OutputBuffer&)>;

Messages NatalDataListing(const Chart& c, ListingTables& t, OutputBuffer& out);
Messages NatalAspectsListing(const Chart& c, ListingTables& t, OutputBuffer& out);
Messages CosmicStateListing(const Chart& c, ListingTables& t, OutputBuffer& out);
Messages CareerFactorsListing(const Chart& c, ListingTables& t, OutputBuffer& out);

// The page of a calculation: a hyphen line, the chart header, the career
// factors, a hyphen line, the natal aspects, a hyphen line, the natal data
// and the cosmic state. A listing that is refused is left out and its
// message returned.
Messages CalculationPage(const Chart& c, ListingTables& t, OutputBuffer& out);

} // namespace kal
