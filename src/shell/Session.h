// The program-wide state, owned once: the chart, the options, the output
// buffer, the input fields, the house-system menu, the file paths and flags.
// The windows and kaltrova-cli each hold one Session and pass it to the core.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "analyses/NatalData.h"
#include "birthdata/InputFields.h"
#include "chart/Aspects.h"
#include "chart/Calc.h"
#include "chart/Chart.h"
#include "shell/Message.h"
#include "shell/Options.h"
#include "shell/OutputBuffer.h"
#include "shell/Settings.h"

namespace kal {

struct Session {
    std::filesystem::path AppPath;
    std::string TitlePrefix = "Kaltrova (Tropical zodiac) - ";

    Chart chart;
    SteppedRecord upd;
    short UpdateMode = 0;
    short InputError = 0;
    bool ChartCalculated = false; // the chart-dependent menu items are enabled

    Options options;
    OutputBuffer out;
    InputFields input;
    HouseMenu houseMenu = {true, false, false, false, false, false, false};
    short DateOrder = 0;  // 0 month-day-year, 1 day-month-year, 2 year-month-day
    short TimeFormat = 0; // 0 12-hour clock, 1 24-hour clock

    std::filesystem::path OrbFilePath;
    std::filesystem::path NamesFilePath;
    std::filesystem::path CitiesFilePath;
    std::string OutputFileName;

    // Kaltrova.INI (window places, the data window's font, wheel settings).
    Settings settings;
    std::string ListFontName = "COURIER NEW";
    // Wheel size constants chosen from the screen at start-up.
    double WheelScreenW = 1024;
    double WheelScale = 1.5;
    short AtlasAvailable = 0;
    // The data window is minimised: pages are composed but not shown.
    bool DataWindowMinimised = false;

    OrbTables orbs;
    AspectFoundTable AspectFound{};
    HeaderTable HeaderLines{};
    HeaderTable HeaderLines2{};
    // The body whose aspects the career listing's focus rule lists next.
    short FocusPlanet = 0;

    // Sets AppPath, creates the program folders, points the ephemeris at
    // ephems/, reads the options and resets the paths to their defaults.
    void Open(const std::filesystem::path& appPath);
    // Closes the ephemeris.
    void Close();

    // Reads OPTIONS.OPT again (after the options editor saves).
    bool ReadOptions();

    // The chart calculation from the input fields (UpdateMode 0) or the
    // stepped record (UpdateMode 1), followed by the data page of a
    // calculation. Returns the messages to show; an input-check failure
    // leaves the previous chart in place and InputError set.
    Messages CalcChart();

    // Empties the page and writes the chart header lines.
    void BeginDataPage();
    // Shows the current page (writes reports/LASTPAGE.TXT).
    bool ShowDataPage(bool minimised = false);

    // Data-menu commands: each is BeginDataPage, the listing, ShowDataPage.
    Messages CmdNatalData();
    Messages CmdNatalAspects();
    Messages CmdCareerFactors();
    Messages CmdCosmicState();
};

} // namespace kal
