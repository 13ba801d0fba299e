// Kaltrova.INI as a user may leave it: the settings are read, written and
// read again, and what is written the second time is what was written the
// first: a setting survives the next start.
#include "FuzzSupport.h"
#include "shell/Settings.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::WriteInput("Kaltrova.INI", data, size);
    Settings s;
    std::filesystem::path names, cities;
    ReadSettings(fuzz::Dir(), s, names, cities);
    auto written = SettingsLines(s, names.string(), cities.string());

    Settings again;
    std::string names2 = "NAMES.FIL", cities2 = "GA_MA.LL";
    ApplySettingsLines(written, again, names2, cities2);
    fuzz::Check(SettingsLines(again, names2, cities2) == written,
                "the settings written are read back as they were");
    return 0;
}
