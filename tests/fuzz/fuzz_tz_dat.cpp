// TZ.DAT as a user may leave it: the table is read, every zone's list line
// is made and picked into the input fields of the example record, and a
// zone that passes the input checks is calculated.
#include "FuzzSupport.h"
#include "birthdata/TimeZones.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ZoneTable t = LoadZoneTable(fuzz::WriteInput("TZ.DAT", data, size));
    fuzz::Check(t.ZoneName.size() == t.ZoneCode.size() && t.ZoneName.size() == t.ZoneOffset.size(),
                "every zone has its name, code and offset");
    fuzz::PassingPicks picks;
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        std::string line = ZoneListLine(t.ZoneName[i], t.ZoneCode[i], t.ZoneOffset[i]);
        InputFields in = fuzz::ExampleInput();
        if (!ApplyZone(t, line, in))
            picks.Calculate(in, "a zone that passes the checks is calculated");
    }
    return 0;
}
