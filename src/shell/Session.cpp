#include "shell/Session.h"

#include <system_error>

#include "analyses/CosmicState.h"
#include "analyses/DataPage.h"
#include "analyses/kaltrova_sr.h"
#include "shell/TextFile.h"

namespace kal {

void Session::Open(const std::filesystem::path& appPath) {
    AppPath = appPath;
    std::error_code ec;
    for (const char* dir : {"ephems", "reports", "n_report"})
        std::filesystem::create_directories(FindFile(AppPath, dir), ec);
    OpenEphemeris(FindFile(AppPath, "ephems"));
    ReadOptions();
    OrbFilePath = NatalOrbPath(AppPath);
    NamesFilePath = FindFile(AppPath, "NAMES.FIL");
    CitiesFilePath = FindFile(AppPath, "GA_MA.LL");
    OutputFileName.clear();
    UpdateMode = 0;
    houseMenu = HouseMenuFromOption(options[27]);
}

void Session::Close() {
    CloseEphemeris();
}

bool Session::ReadOptions() {
    return options.ReadOptions(FindFile(AppPath, "OPTIONS.OPT"));
}

void Session::BeginDataPage() {
    out.ClearDataPage();
    ChartHeader(chart, DateOrder, out);
}

bool Session::ShowDataPage(bool minimised) {
    return kal::ShowDataPage(out, AppPath, minimised || DataWindowMinimised);
}

Messages Session::CalcChart() {
    chart.HouseSystem = std::string(1, HouseLetterFromMenu(houseMenu));
    if (UpdateMode == 1) {
        FillIdentityFromStepped(chart, upd, input.txtName, DateOrder);
    } else {
        InputError = 0;
        Messages checks = InputChecks(input, chart.HouseSystem[0]);
        if (!checks.empty()) {
            InputError = 1;
            return checks;
        }
        FillIdentityFromInput(chart, input, DateOrder);
    }
    HeaderLines = {};
    HeaderLines2 = {};
    CalcJulDayLocal(chart);
    if (UpdateMode == 1)
        SetCalcInputsFromStepped(chart, upd);
    else
        SetCalcInputsFromInput(chart, input);
    CalcEphemeris(chart);

    chart.NatalSidereal = chart.SiderealTime;
    chart.NatalCusp = chart.CuspTable;
    FindPlanetHouses(chart);
    chart.NatalLong = chart.PlanetLong;
    chart.NatalSpeed = chart.PlanetSpeed;
    chart.NatalRetro = chart.RetroFlags;
    chart.SunMoonMid = Midpoint(chart.NatalLong[Moon], chart.NatalLong[Sun]);
    chart.JupPlutoMid = Midpoint(chart.NatalLong[Pluto], chart.NatalLong[Jupiter]);
    ChartCalculated = true;

    Messages msgs = WriteCalculationPage(*this);

    BuildHeaderLines(chart, DateOrder, HeaderLines, HeaderLines2);
    OrbFilePath = NatalOrbPath(AppPath);
    chart.CuspTable = chart.NatalCusp;
    chart.PlanetLong = chart.NatalLong;
    chart.RetroFlags = chart.NatalRetro;
    chart.SiderealTime = chart.NatalSidereal;
    return msgs;
}

Messages Session::CmdNatalData() {
    BeginDataPage();
    NatalData(chart, out);
    ShowDataPage();
    return {};
}

Messages Session::CmdNatalAspects() {
    chart.PlanetLong = chart.NatalLong;
    BeginDataPage();
    if (auto m = ListNatalAspects(chart, AppPath, orbs, AspectFound, out)) {
        out.ClearDataPage();
        return {*m};
    }
    ShowDataPage();
    return {};
}

Messages Session::CmdCareerFactors() {
    // Refused before the header is written, so that no part of the page
    // reaches the buffer.
    if (auto m = LoadCareerOrbs(AppPath, orbs)) return {*m};
    BeginDataPage();
    if (auto m = ListCareerFactors(chart, AppPath, orbs, FocusPlanet, out)) {
        out.ClearDataPage();
        return {*m};
    }
    ShowDataPage();
    return {};
}

Messages Session::CmdCosmicState() {
    BeginDataPage();
    ListCosmicState(chart, options, out);
    ShowDataPage();
    return {};
}

} // namespace kal
