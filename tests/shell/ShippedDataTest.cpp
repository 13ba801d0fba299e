// The data files shipped in the program directory: the options file and its
// master copy, the names file and the two orb files. These catch edits that
// break a file's shape (a lost line shifts every later option) or put a value
// where the program cannot use it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <regex>
#include <set>

#include "TestSupport.h"
#include "birthdata/NamesFile.h"
#include "chart/Aspects.h"
#include "chart/Calc.h"
#include "chart/Tables.h"
#include "shell/Options.h"
#include "shell/Session.h"
#include "shell/TextFile.h"
#include "shell/VbText.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

fs::path Shipped(const std::string& name) {
    return fs::path(KALTROVA_SOURCE_DIR) / "data" / name;
}

std::string Bytes(const std::string& name) {
    auto b = ReadFileBytes(Shipped(name));
    EXPECT_TRUE(b.has_value()) << name;
    return b.value_or("");
}

// The lines of a file that must be written with CR LF throughout; fails the
// test on a bare LF, a missing final line end or an empty line (which would
// stop the reader early).
std::vector<std::string> CrLfLines(const std::string& name) {
    std::string b = Bytes(name);
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < b.size()) {
        size_t lf = b.find('\n', start);
        if (lf == std::string::npos) {
            ADD_FAILURE() << name << ": last line has no line end";
            break;
        }
        EXPECT_TRUE(lf > start && b[lf - 1] == '\r') << name << ": bare LF at byte " << lf;
        std::string line = b.substr(start, lf - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        EXPECT_FALSE(line.empty()) << name << ": empty line " << lines.size() + 1;
        lines.push_back(line);
        start = lf + 1;
    }
    return lines;
}

struct Range {
    int first, last;
    double min, max;
    bool whole;
};

// Every option the program reads, with the values it can use.
// clang-format off
const std::vector<Range> kUsedOptions = {
    {1, 11, -10, 10, false},    // cosmic-state points
    {15, 15, 0, 2, true},       // MC glyph
    {18, 18, -13, 12, false},   // home zone
    {19, 19, 0, 180, true},     // home longitude degrees, minutes, East
    {20, 20, 0, 59, true},
    {21, 21, 0, 1, true},
    {22, 22, 0, 90, true},      // home latitude degrees, minutes, South
    {23, 23, 0, 59, true},
    {24, 24, 0, 1, true},
    {27, 27, 1, 7, true},       // house system with a menu item
    {28, 28, 0, 1, true},       // label orientation
    {30, 30, 10, 120, true},    // printed page
    {42, 42, 0, 1, true},       // tips
    {45, 45, 10, 120, true},    // saved page
    {47, 47, 0, 1, true},       // aspect lines
    {60, 67, -5, 10, false},    // label step spacings
    {68, 87, 4, 30, true},      // wheel font sizes
    {88, 116, 0, 15, true},     // palette colours
    {117, 118, 40, 200, true},  // print width thresholds
    {129, 129, 0, 20, true},    // report page: foot, length, top
    {131, 131, 20, 120, true},
    {132, 132, 0, 10, true},
    {140, 141, 0, 1, true},     // report wording and range
    {145, 145, 0, 1, true},
    {174, 174, 0, 1, true},     // printed page: personal header
    {175, 175, 4, 30, true},
    {176, 176, 0, 15, true},
    {177, 177, 0, 200, false},
    {178, 178, 0, 1, true},     // printed page: aspect grid
    {179, 179, -250, 250, false},
    {181, 182, 4, 30, true},
    {183, 185, 0, 15, true},
    {186, 187, -10, 20, false},
    {188, 188, 0, 1.2, false},
    {191, 191, 0, 20, false},   // printed page: header blocks
    {193, 193, 4, 30, true},    // minutes step correction, screen and printer
    {194, 194, -5, 5, false},
    {195, 195, 4, 30, true},
    {196, 196, -5, 5, false},
    {199, 199, 0.5, 3, false},  // printed page: header line spacing and offsets
    {243, 244, 0, 100, false},
};
// clang-format on

const Range* UsedOption(int n) {
    for (const auto& r : kUsedOptions)
        if (n >= r.first && n <= r.last) return &r;
    return nullptr;
}

Options ShippedOptions() {
    Options o;
    EXPECT_TRUE(o.ReadOptions(Shipped("OPTIONS.OPT")));
    return o;
}

// The input fields the natal input window shows for "Now": the home place.
InputFields HomePlaceInput(const Options& o) {
    InputFields in;
    in.txtName = "Now";
    in.txtMonth = "6";
    in.txtDay = "15";
    in.txtYear = "2000";
    in.txtBirthHour = "3";
    in.txtBirthMinute = "7";
    in.txtTZ = NumText(o[18]);
    in.txtLongDeg = NumText(o[19]);
    in.txtLongMin = NumText(o[20]);
    in.txtLatDeg = NumText(o[22]);
    in.txtLatMin = NumText(o[23]);
    in.optEast = o[21] != 0;
    in.optSouth = o[24] != 0;
    return in;
}

// Degrees.minutes text to decimal degrees.
double DegMin(const std::string& text) {
    double v = std::fabs(Val(text));
    double d = std::floor(v);
    return d + (v - d) * 100 / 60;
}

} // namespace

TEST(ShippedOptions, Has244DescribedLinesAndAnIdenticalMasterCopy) {
    EXPECT_EQ(Bytes("OPTIONS.OPT"), Bytes("OPTIONS.MST"));
    auto lines = CrLfLines("OPTIONS.OPT");
    ASSERT_EQ(lines.size(), 244u);
    for (size_t i = 0; i < lines.size(); ++i) {
        const std::string& l = lines[i];
        int n = static_cast<int>(i) + 1;
        ASSERT_GT(l.size(), 7u) << "option " << n << " has no description";
        // The whole value lies in the seven characters read, the text after.
        std::string field = Trim(l.substr(0, 7));
        EXPECT_EQ(field.find(' '), std::string::npos) << "option " << n;
        EXPECT_FLOAT_EQ(static_cast<float>(std::stod(field)), LeadingValue(l)) << "option " << n;
        EXPECT_NE(l[7], ' ') << "option " << n;
        EXPECT_LE(l.size(), 102u) << "option " << n;
        if (!UsedOption(n)) {
            EXPECT_EQ(l, "0      Reserved (not used)") << "option " << n;
        }
    }
    // The reader reaches the last line.
    Options o = ShippedOptions();
    EXPECT_FLOAT_EQ(o[244], LeadingValue(lines[243]));
}

TEST(ShippedOptions, UsedValuesAreInTheirRanges) {
    Options o = ShippedOptions();
    for (const auto& r : kUsedOptions) {
        for (int n = r.first; n <= r.last; ++n) {
            EXPECT_GE(o[n], r.min) << "option " << n;
            EXPECT_LE(o[n], r.max) << "option " << n;
            if (r.whole) {
                EXPECT_EQ(o[n], std::floor(o[n])) << "option " << n;
            }
        }
    }
}

TEST(ShippedOptions, ValuesWorkTogether) {
    Options o = ShippedOptions();

    // Every wheel element on screen is visible against the background; on
    // paper nothing is drawn in white.
    for (int n = 88; n <= 102; ++n) {
        if (n != 100) {
            EXPECT_NE(o[n], o[100]) << "option " << n;
        }
    }
    for (int n = 103; n <= 116; ++n) EXPECT_NE(o[n], 15) << "option " << n;
    for (int n : {176, 183, 184, 185}) EXPECT_NE(o[n], 15) << "option " << n;

    // The smaller print font takes over from the larger one.
    EXPECT_LT(o[117], o[118]);

    // A report page: the counter runs 0 .. 131-129 (the lines after the
    // first page's include the top blank lines of 132), then four blank
    // lines and the footer. The page holds report text and fits its length.
    int body = static_cast<int>(o[131] - o[129]) + 1;
    EXPECT_GT(body, static_cast<int>(o[132]) + 10);
    EXPECT_LE(body + 5, static_cast<int>(o[131]));

    // The home place passes the calculation's checks in every house system,
    // and its zone lies on the side of Greenwich of its longitude.
    InputFields home = HomePlaceInput(o);
    EXPECT_TRUE(InputChecks(home, 'P').empty());
    double lonHours = (o[19] + o[20] / 60.0) / 15 * (o[21] != 0 ? -1 : 1);
    EXPECT_LE(std::fabs(o[18] - lonHours), 1.5);

    // The start-up house system is one the menu offers.
    HouseMenu menu = HouseMenuFromOption(o[27]);
    EXPECT_EQ(std::count(menu.begin(), menu.end(), true), 1);
}

TEST(ShippedNames, RecordsAreWrittenAsTheRecordWriterWritesThem) {
    auto lines = CrLfLines("NAMES.FIL");
    ASSERT_GE(lines.size(), 13u);
    EXPECT_EQ(lines[0], "Example,12 May 1959,10.43,A,6,75.23,39.45,example@kaltrova.org");

    NamesList list = LoadNamesFile(Shipped("NAMES.FIL"));
    ASSERT_TRUE(list.opened);
    EXPECT_TRUE(list.errors.empty());
    ASSERT_EQ(list.records.size(), lines.size());

    const std::regex date(R"(\d\d (Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) \d{4})");
    const std::regex time(R"(\d{1,2}\.\d\d)");
    const std::regex lon(R"(-?\d{3}\.\d\d)");
    const std::regex lat(R"(-?\d\d\.\d\d)");
    std::set<std::string> names;
    bool east = false, west = false, south = false, am = false, pm = false;
    for (size_t i = 1; i < list.records.size(); ++i) {
        const BirthRecord& r = list.records[i];
        SCOPED_TRACE(r.RecName);
        EXPECT_TRUE(names.insert(r.RecName).second) << "name listed twice";
        EXPECT_TRUE(std::regex_match(r.RecDate, date)) << r.RecDate;
        EXPECT_TRUE(std::regex_match(r.RecTime, time)) << r.RecTime;
        double t = Val(r.RecTime);
        EXPECT_GE(t, 1);
        EXPECT_LT(t, 13);
        EXPECT_LT(std::lround((t - std::floor(t)) * 100), 60);
        EXPECT_TRUE(r.RecAmPm == "A" || r.RecAmPm == "P") << r.RecAmPm;
        EXPECT_TRUE(std::regex_match(r.RecLong, lon)) << r.RecLong;
        EXPECT_TRUE(std::regex_match(r.RecLat, lat)) << r.RecLat;
        for (const std::string& c : {r.RecLong, r.RecLat}) {
            double v = std::fabs(Val(c));
            EXPECT_LT(std::lround((v - std::floor(v)) * 100), 60) << c;
        }
        EXPECT_EQ(r.RecEmail, "");

        // The zone (hours added to clock time) must match the side of
        // Greenwich: local mean time exactly, a standard or summer zone
        // within two hours of it.
        double lonHours = DegMin(r.RecLong) / 15 * (Val(r.RecLong) < 0 ? -1 : 1);
        EXPECT_LE(std::fabs(Val(r.RecTZ) - lonHours), 2.0) << r.RecTZ << " at " << r.RecLong;

        east |= Val(r.RecLong) < 0;
        west |= Val(r.RecLong) > 0;
        south |= Val(r.RecLat) < 0;
        am |= r.RecAmPm == "A";
        pm |= r.RecAmPm == "P";
    }
    EXPECT_TRUE(east && west && south && am && pm);
}

TEST(ShippedNames, EveryRecordCalculatesWithoutMessages) {
    NamesList list = LoadNamesFile(Shipped("NAMES.FIL"));
    test::ScratchAppDir dir;
    Session s;
    s.Open(dir.path());
    for (BirthRecord r : list.records) {
        SCOPED_TRACE(r.RecName);
        EXPECT_FALSE(TransferRecord(r, s.DateOrder, s.input).has_value());
        EXPECT_TRUE(InputChecks(s.input, 'P').empty());
        EXPECT_TRUE(s.CalcChart().empty());
        EXPECT_EQ(s.InputError, 0);
    }
    s.Close();
}

TEST(ShippedNames, LocalMeanTimeAndZoneRecordsGiveTheReferenceAngles) {
    // Ascendant and MC of two records as swetest gives them for the same
    // moment and place (Einstein: 14.3.1879 10:50 UT, 10E00 48N24; Obama:
    // 5.8.1961 05:24 UT, 157W50 21N18; Placidus).
    struct Ref {
        const char* name;
        double asc, mc;
    };
    const Ref refs[] = {{"Albert Einstein", 101.6464, 342.8399},
                        {"Barack Obama", 318.0836, 238.9176}};
    NamesList list = LoadNamesFile(Shipped("NAMES.FIL"));
    test::ScratchAppDir dir;
    Session s;
    s.Open(dir.path());
    for (const Ref& ref : refs) {
        SCOPED_TRACE(ref.name);
        int i = FindRecord(list.records, ref.name);
        ASSERT_GE(i, 0);
        BirthRecord r = list.records[static_cast<size_t>(i)];
        ASSERT_FALSE(TransferRecord(r, s.DateOrder, s.input).has_value());
        ASSERT_TRUE(s.CalcChart().empty());
        // One arc minute: the zones are written to four decimals.
        EXPECT_NEAR(s.chart.NatalLong[Asc], ref.asc, 1.0 / 60);
        EXPECT_NEAR(s.chart.NatalLong[MC], ref.mc, 1.0 / 60);
    }
    s.Close();
}

TEST(ShippedOrbs, NamedSixteenLinesCareerTighterAndNoOverlaps) {
    OrbTable natal{}, career{};
    ASSERT_TRUE(LoadOrbFile(Shipped("NATAL.ORB"), natal));
    ASSERT_TRUE(LoadOrbFile(Shipped("Dravik_Natal_Orbs.ORB"), career));
    for (const char* file : {"NATAL.ORB", "Dravik_Natal_Orbs.ORB"}) {
        auto lines = CrLfLines(file);
        ASSERT_EQ(lines.size(), 16u) << file;
        for (int k = 1; k <= 16; ++k) {
            std::string name = k == 16 ? "165" : Trim(AspectName(k + 1));
            EXPECT_NE(lines[static_cast<size_t>(k - 1)].find(name, 7), std::string::npos)
                << file << " line " << k << " should name " << name;
        }
    }
    for (int k = 1; k <= 16; ++k) {
        EXPECT_GT(career[static_cast<size_t>(k)], 0) << k;
        EXPECT_LE(career[static_cast<size_t>(k)], natal[static_cast<size_t>(k)]) << k;
    }
    for (int k = 1; k <= 5; ++k)
        EXPECT_LT(career[static_cast<size_t>(k)], natal[static_cast<size_t>(k)]) << k;

    // The aspects that are tested (all but the parallel) have disjoint
    // windows, so no separation depends on the order of the tests.
    for (const OrbTable* t : {&natal, &career}) {
        std::vector<std::pair<double, double>> windows;
        for (int code = 2; code <= 17; ++code) {
            if (code == 7) continue;
            double a = AspectAngle[static_cast<size_t>(code)];
            double orb = (*t)[static_cast<size_t>(code - 1)];
            windows.push_back({std::max(0.0, a - orb), std::min(180.0, a + orb)});
        }
        std::sort(windows.begin(), windows.end());
        for (size_t i = 1; i < windows.size(); ++i)
            EXPECT_LT(windows[i - 1].second, windows[i].first)
                << windows[i - 1].second << " overlaps " << windows[i].first;
    }
}
