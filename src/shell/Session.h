// The program-wide state of the core, owned once and grouped by purpose:
// the paths of the program directory and the current files, the options and
// regional settings, the chart with what it is calculated from, and the
// listings' state with the page buffer. The desktop program and kaltrova-cli
// each hold one Session; the windows' own preferences live beside it in the
// windows' context.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "analyses/Listings.h"
#include "analyses/NatalData.h"
#include "atlas/AtlasData.h"
#include "base/Message.h"
#include "base/Options.h"
#include "base/OutputBuffer.h"
#include "chart/Aspects.h"
#include "chart/Calc.h"
#include "chart/Chart.h"
#include "chart/InputFields.h"
#include "report/NatalReport.h"

namespace kal {

struct SessionPaths {
    std::filesystem::path AppPath;        // the program directory
    std::filesystem::path OrbFilePath;    // the wheel's orb file
    std::filesystem::path NamesFilePath;  // the current names file
    std::filesystem::path CitiesFilePath; // the current cities file
    std::string OutputFileName;           // where the data window's Save writes
    bool AtlasAvailable = false;          // the atlas file is present
};

struct Regional {
    short DateOrder = 0;  // 0 month-day-year, 1 day-month-year, 2 year-month-day
    short TimeFormat = 0; // 0 12-hour clock, 1 24-hour clock
};

struct ChartState {
    Chart chart;
    InputFields input;            // what the chart was last calculated from
    SteppedRecord upd;            // the wheel's stepped moment
    short UpdateMode = 0;         // 0 from the input fields, 1 from the stepped record
    char HouseSystem = 'P';       // the house system of the next calculation
    bool AnalyticalNamed = false; // the analytical model's stand-in was named this run
};

struct ListingState {
    OutputBuffer out;
    OrbTables orbs;
    AspectFoundTable AspectFound{};
    HeaderTable HeaderLines{}; // the chart wheel's header
    HeaderTable HeaderLines2{};
    short FocusPlanet = 0; // the body whose aspects the career listing lists next
};

// What a calculation gave: whether the chart was calculated, and the
// messages to show (the input checks that failed, or the listings of the
// page that were refused).
struct CalcOutcome {
    bool calculated = false;
    Messages messages;
    // Said the first time in a run that the library's analytical model
    // stood in for a missing ephemeris file: for a status line or standard
    // error, not a message box.
    std::optional<std::string> notice;
};

// The notice of the analytical model standing in for the ephemeris files of
// `ephemsDir`.
std::string AnalyticalModelNotice(const std::filesystem::path& ephemsDir);

struct Session {
    SessionPaths paths;
    Options options;
    Regional regional;
    ChartState calc;
    ListingState listing;
    // The last natal report, kept until the next one replaces it.
    NatalReport report;
    AtlasData atlas;

    // Sets AppPath, creates the program folders, points the ephemeris at
    // ephems/, reads the options and resets the paths, the update mode and
    // the house system (option 27) to their start values. The atlas is the
    // program directory's, else that of `shippedDir`, the folder the data
    // was shipped in when the program directory is the user's copy of it.
    void Open(const std::filesystem::path& appPath, const std::filesystem::path& shippedDir = {});
    // Closes the ephemeris.
    void Close();

    // Reads OPTIONS.OPT again (after the options editor saves).
    bool ReadOptions();

    // The commands below compose the page; whoever shows it calls
    // ShowDataPage when they return no message (the windows leave it unshown
    // while the data window is minimised).

    // The one chart calculation of the program: OK in the input window, a
    // double click in the names list, a house-system toggle and kaltrova-cli.
    // Empties the buffer and the page, takes the fields as the input and
    // calculates (update mode 0); on success composes the page of a
    // calculation, which is shown even when a listing of it was refused. A
    // failing input check leaves the previous chart in place.
    CalcOutcome Calculate(const InputFields& in);
    // The calculation of the wheel's time steps from a stepped record
    // (update mode 1), with the page of a calculation.
    CalcOutcome Calculate(const SteppedRecord& r);

    // The listings' view of the session.
    ListingTables Tables();

    // Empties the page and writes the chart header lines.
    void BeginDataPage();
    // Shows the current page: its closing blank line, and the page written
    // to reports/LASTPAGE.TXT. Nothing when `minimised` (the data window is
    // minimised) or the buffer is empty; a message when the file could not
    // take the page.
    ShownPage ShowDataPage(bool minimised = false);

    // A Data-menu command: BeginDataPage and the listing. A refused listing
    // leaves the page empty. `restore` first brings the
    // chart's working copy back to the natal chart, as the natal data and
    // natal aspects commands do.
    enum class WorkingCopy { Keep, RestoreNatal };
    Messages RunListing(const Listing& listing, WorkingCopy restore = WorkingCopy::Keep);

    Messages CmdNatalData();
    Messages CmdNatalAspects();
    Messages CmdCareerFactors();
    Messages CmdCosmicState();
    // A help file in the data page.
    Messages CmdHelpText(const std::string& helpFileName);
    // The natal report: the data page of the natal data and the natal
    // aspects (which finds the aspects the report reads), then the report
    // itself. `progress` may be null. When the natal orbs cannot be read
    // the page is refused and the report has no aspects.
    Messages CmdNatalReport(ReportProgress* progress = nullptr);

  private:
    CalcOutcome FinishCalculation(const CastResult& cast);
};

} // namespace kal
