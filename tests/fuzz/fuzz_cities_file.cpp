// A cities file as a user may leave it: the list is read, each place is
// stored again and read back unchanged, moved into the input fields of the
// example record as a pick does, checked, and the first places that pass
// are calculated with their whole page.
#include "FuzzSupport.h"
#include "birthdata/CitiesFile.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CitiesList list = LoadCitiesFile(fuzz::WriteInput("GA_MA.LL", data, size));
    fuzz::Check(list.opened, "a cities file that exists is read");
    fuzz::PassingPicks picks;
    for (const CityRecord& place : list.places) {
        auto again = ParseCityLine(CityLine(place));
        fuzz::Check(again && CityLine(*again) == CityLine(place),
                    "a place stored is read back as it was");
        InputFields in = fuzz::ExampleInput();
        if (!TransferPlace(place, in))
            picks.Calculate(in, "fields that pass the checks are calculated");
    }
    return 0;
}
