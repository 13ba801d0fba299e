// A names file as a user may leave it: the list is read, each record is
// stored again and read back unchanged, moved into the input fields in each
// date order as a pick does, checked, and the first records that pass are
// calculated with their whole page.
#include "FuzzSupport.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    NamesList list = LoadNamesFile(fuzz::WriteInput("NAMES.FIL", data, size));
    fuzz::Check(list.opened, "a names file that exists is read");
    Session& s = fuzz::FuzzSession();
    fuzz::PassingPicks picks;
    for (const BirthRecord& rec : list.records) {
        auto again = ParseRecordLine(RecordLine(rec));
        fuzz::Check(again && RecordLine(*again) == RecordLine(rec),
                    "a record stored is read back as it was");
        for (int dateOrder = 0; dateOrder <= 2; ++dateOrder) {
            BirthRecord picked = rec;
            InputFields in;
            if (TransferRecord(picked, dateOrder, in)) continue;
            s.regional.DateOrder = static_cast<short>(dateOrder);
            picks.Calculate(in, "fields that pass the checks are calculated");
        }
    }
    s.regional.DateOrder = 0;
    return 0;
}
