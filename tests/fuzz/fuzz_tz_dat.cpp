// TZ.DAT as a user may leave it: the table is read, every zone's list line
// is made and picked into the input fields of the example record, and a
// zone that passes the input checks is calculated.
#include "FuzzSupport.h"
#include "birthdata/TimeZones.h"
#include "chart/Calc.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ZoneTable t = LoadZoneTable(fuzz::WriteInput("TZ.DAT", data, size));
    fuzz::Check(t.ZoneName.size() == t.ZoneCode.size() && t.ZoneName.size() == t.ZoneOffset.size(),
                "every zone has its name, code and offset");
    Session& s = fuzz::FuzzSession();
    int calculated = 0;
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        std::string line = ZoneListLine(t.ZoneName[i], t.ZoneCode[i], t.ZoneOffset[i]);
        InputFields in = fuzz::ExampleInput();
        if (ApplyZone(t, line, in)) continue;
        if (!InputChecks(in, 'P').empty() || calculated >= 2) continue;
        fuzz::Check(s.Calculate(in).calculated, "a zone that passes the checks is calculated");
        ++calculated;
    }
    return 0;
}
