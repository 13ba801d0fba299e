// Orb files as a user may leave them: the same bytes as NATAL.ORB and as
// the career orbs, then the natal aspects, the career factors and the natal
// report (whose passages follow the aspects found) of the example chart.
#include "FuzzSupport.h"
#include "chart/Aspects.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Session& s = fuzz::FuzzSession();
    fuzz::WriteInput("NATAL.ORB", data, size);
    fuzz::WriteInput("Dravik_Natal_Orbs.ORB", data, size);
    // Entries without a line keep their values: start both from nothing.
    s.listing.orbs = OrbTables{};
    fuzz::Check(s.CmdNatalAspects().empty(), "an orb file that exists is read");
    fuzz::Check(s.CmdCareerFactors().empty(), "the career orbs that exist are read");
    for (size_t a = 1; a < s.listing.orbs.NatalOrbs.size(); ++a)
        fuzz::Check(s.listing.orbs.NatalOrbs[a] == s.listing.orbs.CareerOrbs[a],
                    "one file gives one table");
    s.CmdNatalReport();
    return 0;
}
