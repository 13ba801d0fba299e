// Each shipped file of the program directory removed in turn: the session
// is started on what is left and every command that reads a file is run.
// None may crash or hang; a command either works as with the file (its
// documented default) or says which file is missing.
#include <gtest/gtest.h>

#include <iostream>
#include <set>
#include <variant>

#include "TestSupport.h"
#include "base/Passages.h"
#include "base/TextFile.h"
#include "birthdata/CitiesFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "birthdata/TimeZones.h"
#include "browsers/Keywords.h"
#include "browsers/Meanings.h"
#include "shell/EditorFile.h"
#include "shell/Session.h"
#include "shell/Settings.h"
#include "shell/Startup.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

const char* kExample = "Example,12 May 1959,10.43,A,6,75.23,39.45,me@example.org";

// What a run of every command gave.
struct Outcome {
    Messages messages;
    bool calculated = false;
    bool namesRead = false, citiesRead = false, zonesCorrupt = false;
    size_t names = 0, places = 0, zones = 0, reportLines = 0, personalLines = 0;
    char houses = 0;
    std::string page;
};

void Add(Messages& to, const Messages& from) {
    to.insert(to.end(), from.begin(), from.end());
}

// Starts a session on `dir` and runs every command that reads a data file.
Outcome RunEverything(const fs::path& dir) {
    Outcome r;
    Session s;
    s.Open(dir);
    r.houses = s.calc.HouseSystem;

    NamesList names = LoadNamesFile(s.paths.NamesFilePath);
    r.namesRead = names.opened;
    r.names = names.records.size();
    CitiesList cities = LoadCitiesFile(s.paths.CitiesFilePath);
    r.citiesRead = cities.opened;
    r.places = cities.places.size();
    ZoneTable zones = LoadZoneTable(FindFile(dir, "TZ.DAT"));
    r.zonesCorrupt = zones.corrupt;
    r.zones = zones.ZoneName.size();
    if (zones.corrupt) r.messages.push_back(TzCorruptMessage());

    Settings settings;
    fs::path namesFile, citiesFile;
    ReadSettings(dir, settings, namesFile, citiesFile);

    CalcOutcome calc = s.Calculate(*test::FieldsOfRecord(kExample));
    r.calculated = calc.calculated;
    Add(r.messages, calc.messages);
    s.ShowDataPage();
    r.page = ReadFileBytes(dir / "reports" / "LASTPAGE.TXT").value_or("");

    Add(r.messages, s.CmdNatalData());
    Add(r.messages, s.CmdNatalAspects());
    Add(r.messages, s.CmdCareerFactors());
    Add(r.messages, s.CmdCosmicState());
    Add(r.messages, s.CmdNatalReport());
    r.reportLines = s.report.ReportLineCount();
    r.personalLines = s.report.PersonalLines.size();
    for (const char* help : {"\\PHILO.HLP"}) Add(r.messages, s.CmdHelpText(help));

    // Every text the meanings window and the keyword lessons can show.
    OutputBuffer out;
    BrowserSelections sel;
    auto show = [&](const LookupResult& l) {
        if (const auto* t = std::get_if<TextLookup>(&l))
            Add(r.messages, ShowLookup(out, dir, sel, *t));
    };
    for (short k = 0; k < 12; ++k) {
        sel.SelSign = sel.SelHouse = k;
        for (short p = 0; p < static_cast<short>(PlanetCaptions.size()); ++p) {
            sel.SelPlanet = p;
            show(PlanetInSignLookup(sel));
            show(PlanetInHouseLookup(sel));
        }
        show(RisingSignLookup(sel));
        Add(r.messages, ShowLesson(out, dir, sel, SignLessonFile(k)));
        Add(r.messages, ShowLesson(out, dir, sel, HouseLessonFile(k)));
    }
    sel.SelAspect = 0;
    for (short p = 0; p < static_cast<short>(PlanetCaptions.size()) - 1; ++p) {
        sel.SelPlanet = p;
        sel.SelPlanet2 = static_cast<short>(p + 1);
        show(AspectLookup(sel));
        if (p < static_cast<short>(LessonPlanetCaptions.size()))
            Add(r.messages, ShowLesson(out, dir, sel, PlanetLessonFile(p)));
    }
    for (auto lesson : {IntroLesson, StepsLesson, KeyLesson, GeneralLesson, ExampleLesson,
                        SummaryLesson, AspectsLesson})
        Add(r.messages, ShowLesson(out, dir, sel, lesson));

    if (!RestoreDefaultOptions(dir)) r.messages.push_back(RestoreFailedMessage());
    s.Close();
    return r;
}

TEST(MissingFiles, EachShippedFileRemovedInTurn) {
    test::ScratchAppDir dir;
    const fs::path aside = dir.path().parent_path() / (dir.path().filename().string() + "-aside");
    fs::create_directories(aside);
    const std::string options = *ReadFileBytes(dir.path() / "OPTIONS.OPT");

    const Outcome whole = RunEverything(dir.path());
    ASSERT_TRUE(whole.messages.empty()) << whole.messages.front().text;
    ASSERT_TRUE(whole.calculated);
    ASSERT_GT(whole.reportLines, 0u);

    std::set<std::string> tried;
    for (const auto& entry : fs::directory_iterator(test::AppDir())) {
        const std::string name = entry.path().filename().string();
        // The programs themselves, and what the program writes.
        if (name == "kaltrova" || name == "kaltrova-cli" || name == "reports" ||
            name == "n_report" || name == "Kaltrova.INI" || name == "PRNTFILE.XXX" ||
            name == "atlas")
            continue;
        SCOPED_TRACE(name);
        tried.insert(name);
        fs::rename(dir.path() / name, aside / name);
        Outcome r = RunEverything(dir.path());
        // Start-up makes the ephemeris folder afresh when it is missing.
        fs::remove_all(dir.path() / name);
        fs::rename(aside / name, dir.path() / name);
        // The restore may have replaced the options: as shipped for the next file.
        dir.Write("OPTIONS.OPT", options);

        // Every message says which file is missing, or is the restore's own.
        for (const Message& m : r.messages) {
            if (name == "OPTIONS.MST" && m == RestoreFailedMessage()) continue;
            EXPECT_NE(m.text.find(name), std::string::npos) << m.text;
        }
        EXPECT_TRUE(r.calculated);

        // The documented outcomes of the files whose loss the user notices.
        if (name == "NATAL.ORB") {
            EXPECT_TRUE(std::find(r.messages.begin(), r.messages.end(),
                                  OrbFileMissing(dir.path() / name)) != r.messages.end());
        } else if (name == "Dravik_Natal_Orbs.ORB") {
            EXPECT_TRUE(std::find(r.messages.begin(), r.messages.end(),
                                  OrbFileMissing(dir.path() / name)) != r.messages.end());
        } else if (name == "TZ.DAT") {
            EXPECT_TRUE(r.zonesCorrupt);
        } else if (name == "NAMES.FIL") {
            EXPECT_FALSE(r.namesRead);
            EXPECT_EQ(r.names, 0u);
        } else if (name == "GA_MA.LL") {
            EXPECT_FALSE(r.citiesRead);
            EXPECT_EQ(r.places, 0u);
        } else if (name == "OPTIONS.OPT") {
            // Every option 0: Placidus.
            EXPECT_EQ(r.houses, 'P');
        } else if (name == "OPTIONS.MST") {
            EXPECT_EQ(r.messages, Messages{RestoreFailedMessage()});
            EXPECT_EQ(*ReadFileBytes(dir.path() / "OPTIONS.OPT"), options);
        } else if (name == "PERSONAL.NAM") {
            EXPECT_EQ(r.personalLines, 0u);
            EXPECT_TRUE(r.messages.empty());
        } else if (name == "ephems") {
            // The analytical model stands in for the files.
            EXPECT_EQ(r.page.substr(0, 200), whole.page.substr(0, 200));
        }
        // The files nothing but the report reads leave it shorter, silently.
        if (r.messages.empty()) {
            EXPECT_LE(r.reportLines, whole.reportLines);
        }
    }
    fs::remove_all(aside);
    EXPECT_GE(tried.size(), 95u);
    std::cout << "missing files tried: " << tried.size() << "\n";
}

} // namespace
