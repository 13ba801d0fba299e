// A cities file as a user may leave it: the list is read, each place is
// stored again and read back unchanged, moved into the input fields of the
// example record as a pick does, checked, and the first places that pass
// are calculated with their whole page.
#include "FuzzSupport.h"
#include "birthdata/CitiesFile.h"
#include "chart/Calc.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CitiesList list = LoadCitiesFile(fuzz::WriteInput("GA_MA.LL", data, size));
    fuzz::Check(list.opened, "a cities file that exists is read");
    Session& s = fuzz::FuzzSession();
    int calculated = 0;
    for (const CityRecord& place : list.places) {
        auto again = ParseCityLine(CityLine(place));
        fuzz::Check(again && CityLine(*again) == CityLine(place),
                    "a place stored is read back as it was");
        InputFields in = fuzz::ExampleInput();
        if (TransferPlace(place, in)) continue;
        if (!InputChecks(in, 'P').empty() || calculated >= 2) continue;
        fuzz::Check(s.Calculate(in).calculated, "fields that pass the checks are calculated");
        ++calculated;
    }
    return 0;
}
