#include "shell/Session.h"

#include <system_error>

#include "base/TextFile.h"
#include "periphery/HelpText.h"
#include "shell/Startup.h"

namespace kal {

void Session::Open(const std::filesystem::path& appPath, const std::filesystem::path& shippedDir) {
    paths.AppPath = appPath;
    std::error_code ec;
    for (const char* dir : {"ephems", "reports", "n_report"})
        std::filesystem::create_directories(FindFile(appPath, dir), ec);
    OpenEphemeris(FindFile(appPath, "ephems"));
    ReadOptions();
    paths.OrbFilePath = NatalOrbPath(appPath);
    paths.NamesFilePath = FindFile(appPath, "NAMES.FIL");
    paths.CitiesFilePath = FindFile(appPath, "GA_MA.LL");
    paths.OutputFileName.clear();
    atlas.SetFile(FindAtlasFile(appPath, shippedDir));
    paths.AtlasAvailable = !atlas.File().empty();
    calc.UpdateMode = 0;
    calc.HouseSystem = HouseLetterOfOption(options[27]);
}

void Session::Close() {
    CloseEphemeris();
}

bool Session::ReadOptions() {
    return options.ReadOptions(FindFile(paths.AppPath, "OPTIONS.OPT"));
}

ListingTables Session::Tables() {
    return {paths.AppPath,      options, regional.DateOrder, listing.orbs, listing.AspectFound,
            listing.FocusPlanet};
}

std::string AnalyticalModelNotice(const std::filesystem::path& ephemsDir) {
    return "positions from the analytical model: no ephemeris file for this date in " +
           ephemsDir.string();
}

CalcOutcome Session::Calculate(const InputFields& in) {
    listing.out.ClearAllLines();
    listing.out.ClearDataPage();
    calc.UpdateMode = 0;
    calc.input = in;
    CastResult cast = CastChart(calc.chart, calc.input, calc.HouseSystem, regional.DateOrder);
    if (!cast.cast()) return {false, cast.messages, std::nullopt};
    return FinishCalculation(cast);
}

CalcOutcome Session::Calculate(const SteppedRecord& r) {
    calc.UpdateMode = 1;
    calc.upd = r;
    CastResult cast =
        CastChart(calc.chart, calc.upd, calc.input.txtName, calc.HouseSystem, regional.DateOrder);
    if (!cast.cast()) return {false, cast.messages, std::nullopt};
    return FinishCalculation(cast);
}

CalcOutcome Session::FinishCalculation(const CastResult& cast) {
    listing.HeaderLines = {};
    listing.HeaderLines2 = {};
    listing.out.ClearDataPage();
    ListingTables tables = Tables();
    CalcOutcome outcome{true, CalculationPage(calc.chart, tables, listing.out), std::nullopt};
    BuildHeaderLines(calc.chart, regional.DateOrder, listing.HeaderLines, listing.HeaderLines2);
    paths.OrbFilePath = NatalOrbPath(paths.AppPath, listing.orbs);
    if (cast.analytical && !calc.AnalyticalNamed) {
        calc.AnalyticalNamed = true;
        outcome.notice = AnalyticalModelNotice(FindFile(paths.AppPath, "ephems"));
    }
    return outcome;
}

void Session::BeginDataPage() {
    listing.out.ClearDataPage();
    ChartHeader(calc.chart, regional.DateOrder, listing.out);
}

ShownPage Session::ShowDataPage(bool minimised) {
    return kal::ShowDataPage(listing.out, paths.AppPath, minimised);
}

Messages Session::RunListing(const Listing& run, WorkingCopy restore) {
    if (restore == WorkingCopy::RestoreNatal) calc.chart.RestoreWorkingCopy();
    BeginDataPage();
    ListingTables tables = Tables();
    Messages msgs = run(calc.chart, tables, listing.out);
    if (!msgs.empty()) listing.out.ClearDataPage();
    return msgs;
}

Messages Session::CmdNatalData() {
    return RunListing(NatalDataListing, WorkingCopy::RestoreNatal);
}

Messages Session::CmdNatalAspects() {
    return RunListing(NatalAspectsListing, WorkingCopy::RestoreNatal);
}

Messages Session::CmdCareerFactors() {
    // Refused before the header is written, so that no part of the page
    // reaches the buffer.
    if (auto m = LoadCareerOrbs(paths.AppPath, listing.orbs)) return {*m};
    return RunListing(CareerFactorsListing);
}

Messages Session::CmdCosmicState() {
    return RunListing(CosmicStateListing);
}

Messages Session::CmdHelpText(const std::string& helpFileName) {
    return HelpTextPage(paths.AppPath, helpFileName, listing.out);
}

Messages Session::CmdNatalReport(ReportProgress* progress) {
    Messages msgs = RunListing(NatalReportListing, WorkingCopy::RestoreNatal);
    // Without the natal orbs the report goes on without its aspects.
    if (!msgs.empty()) listing.AspectFound = AspectFoundTable{};
    BuildNatalReport(report, calc.chart,
                     {paths.AppPath, options, regional.DateOrder, listing.AspectFound}, progress);
    return msgs;
}

} // namespace kal
