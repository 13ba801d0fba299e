// OPTIONS.OPT as a user may leave it: the options are read, the house system
// and the home place taken from them, the example chart calculated, and the
// pages that read options made: the cosmic state, the natal report with its
// title page and paging, the data window's Save and the print window's pages.
#include "FuzzSupport.h"
#include "birthdata/InputRules.h"
#include "shell/DataFile.h"
#include "shell/Startup.h"

using namespace kal;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Session& s = fuzz::FuzzSession();
    fuzz::WriteInput("OPTIONS.OPT", data, size);
    s.options = Options{};
    fuzz::Check(s.ReadOptions(), "an options file that exists is read");
    s.calc.HouseSystem = HouseLetterOfOption(s.options[27]);

    InputFields home = fuzz::ExampleInput();
    FillHomePlace(home, s.options);
    if (InputChecks(home, s.calc.HouseSystem).empty())
        fuzz::Check(s.Calculate(home).calculated, "a home place that passes is calculated");
    else
        fuzz::Check(s.Calculate(fuzz::ExampleInput()).calculated, "the example is calculated");

    s.CmdCosmicState();
    s.CmdNatalReport();
    ReportPagedLines(s.report, s.options);
    const auto& lines = s.listing.out.AllLines;
    SavedDataBytes(lines, s.options[45]);
    PrintPages(lines, s.options[30]);
    PrintWidthClass(lines, s.options[117], s.options[118]);
    return 0;
}
