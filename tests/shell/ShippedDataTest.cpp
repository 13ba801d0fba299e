// The data files shipped in the program directory: the options file and its
// master copy, the names file and the two orb files. These catch edits that
// break a file's shape (a lost line shifts every later option) or put a value
// where the program cannot use it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "TestSupport.h"
#include "base/Options.h"
#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/InputRules.h"
#include "birthdata/NamesFile.h"
#include "birthdata/RecordWriter.h"
#include "chart/Aspects.h"
#include "chart/Calc.h"
#include "chart/Tables.h"
#include "shell/Session.h"

using namespace kal;
namespace fs = std::filesystem;

namespace {

fs::path Shipped(const std::string& name) {
    return fs::path(KALTROVA_SOURCE_DIR) / "data" / name;
}

// The lines of a file that must be CR LF throughout; fails on a bare LF, a
// missing final line end or an empty line (which would stop the reader).
std::vector<std::string> CrLfLines(const std::string& name) {
    const std::string b = ReadFileBytes(Shipped(name)).value_or("");
    EXPECT_FALSE(b.empty()) << name;
    EXPECT_TRUE(b.size() >= 2 && b.substr(b.size() - 2) == "\r\n") << name << ": last line end";
    std::vector<std::string> lines;
    for (size_t start = 0, lf; (lf = b.find('\n', start)) != std::string::npos; start = lf + 1) {
        EXPECT_TRUE(lf > start && b[lf - 1] == '\r') << name << ": bare LF at byte " << lf;
        lines.push_back(b.substr(start, lf > start ? lf - start - 1 : 0));
        EXPECT_FALSE(lines.back().empty()) << name << ": empty line " << lines.size();
    }
    return lines;
}

} // namespace

TEST(ShippedOptions, ShapeMasterCopyAndValuesThatWorkTogether) {
    EXPECT_EQ(ReadFileBytes(Shipped("OPTIONS.OPT")), ReadFileBytes(Shipped("OPTIONS.MST")));
    const auto lines = CrLfLines("OPTIONS.OPT");
    ASSERT_EQ(lines.size(), 244u);
    for (size_t i = 0; i < lines.size(); ++i) {
        // The whole value lies in the seven characters read, a description after.
        const std::string& l = lines[i];
        ASSERT_GT(l.size(), 7u) << "option " << i + 1;
        const std::string field = Trim(l.substr(0, 7));
        EXPECT_EQ(field.find(' '), std::string::npos) << "option " << i + 1;
        EXPECT_FLOAT_EQ(static_cast<float>(std::stod(field)), LeadingValue(l)) << i + 1;
        EXPECT_NE(l[7], ' ') << "option " << i + 1;
    }
    Options o;
    ASSERT_TRUE(o.ReadOptions(Shipped("OPTIONS.OPT")));
    EXPECT_FLOAT_EQ(o[244], LeadingValue(lines[243])); // the reader reaches the end

    // Nothing on screen is drawn in the background colour, nothing on paper
    // in white; the smaller print font takes over from the larger one.
    for (int n = 88; n <= 102; ++n)
        if (n != 100) {
            EXPECT_NE(o[n], o[100]) << "option " << n;
        }
    for (int n :
         {103, 104, 105, 106, 107, 108, 109, 110, 111, 112, 113, 114, 115, 116, 176, 183, 184, 185})
        EXPECT_NE(o[n], 15) << "option " << n;
    EXPECT_LT(o[117], o[118]);
    // A report page holds text after its top lines and fits its length.
    const int body = static_cast<int>(o[131] - o[129]) + 1;
    EXPECT_GT(body, static_cast<int>(o[132]) + 10);
    EXPECT_LE(body + 5, static_cast<int>(o[131]));

    // "Now" at the home place passes the checks, with the zone on the side
    // of Greenwich of the longitude; the start-up house system is on the menu.
    InputFields home;
    std::tm noon{};
    noon.tm_mday = 15;
    noon.tm_hour = 12;
    noon.tm_year = 100;
    FillNow(home, noon, 0, o);
    EXPECT_TRUE(InputChecks(home, 'P').empty());
    EXPECT_LE(std::fabs(o[18] - (o[19] + o[20] / 60.0) / 15 * (o[21] != 0 ? -1 : 1)), 1.5);
    EXPECT_EQ(o[27], 1); // Placidus
}

TEST(ShippedNames, RecordsReadBackAsWrittenAndCalculate) {
    const auto lines = CrLfLines("NAMES.FIL");
    const NamesList list = LoadNamesFile(Shipped("NAMES.FIL"));
    ASSERT_TRUE(list.opened);
    EXPECT_TRUE(list.errors.empty());
    ASSERT_EQ(list.records.size(), lines.size());
    ASSERT_GE(lines.size(), 13u);
    EXPECT_EQ(lines[0], "Example,12 May 1959,10.43,A,6,75.23,39.45,example@kaltrova.org");

    test::ScratchAppDir dir;
    Session s;
    s.Open(dir.path());
    for (size_t i = 0; i < list.records.size(); ++i) {
        BirthRecord r = list.records[i];
        SCOPED_TRACE(r.RecName);
        InputFields in;
        ASSERT_FALSE(TransferRecord(r, s.regional.DateOrder, in).has_value());
        // Saving the record from the input window writes the same line back
        // (the example record keeps its short longitude).
        if (i > 0) {
            auto saved = RecordFromInput(in, s.regional.DateOrder);
            ASSERT_TRUE(saved);
            EXPECT_EQ(RecordLine(*saved), lines[i]);
        }
        EXPECT_TRUE(InputChecks(in, 'P').empty());
        EXPECT_TRUE(s.Calculate(in).messages.empty());
        // The zone lies within two hours of local mean time.
        const Chart& c = s.calc.chart;
        EXPECT_LE(std::fabs(c.ChartTZ + c.GeoLong / 15), 2.0) << r.RecTZ;
    }
    // Local mean time and zone records give the angles swetest gives for the
    // same moment and place (Placidus; to the minute, zones have 4 decimals).
    const struct {
        const char* name;
        double asc, mc;
    } refs[] = {{"Albert Einstein", 101.6464, 342.8399}, {"Barack Obama", 318.0836, 238.9176}};
    for (const auto& ref : refs) {
        const int i = FindRecord(list.records, ref.name);
        ASSERT_GE(i, 0) << ref.name;
        BirthRecord r = list.records[static_cast<size_t>(i)];
        InputFields in;
        ASSERT_FALSE(TransferRecord(r, s.regional.DateOrder, in).has_value());
        ASSERT_TRUE(s.Calculate(in).messages.empty());
        EXPECT_NEAR(s.calc.chart.NatalLong[Asc], ref.asc, 1.0 / 60) << ref.name;
        EXPECT_NEAR(s.calc.chart.NatalLong[MC], ref.mc, 1.0 / 60) << ref.name;
    }
    s.Close();
}

TEST(ShippedOrbs, NamedSixteenLinesCareerTighterAndNoOverlaps) {
    OrbTable natal{}, career{};
    ASSERT_TRUE(LoadOrbFile(Shipped("NATAL.ORB"), natal));
    ASSERT_TRUE(LoadOrbFile(Shipped("Dravik_Natal_Orbs.ORB"), career));
    for (const char* file : {"NATAL.ORB", "Dravik_Natal_Orbs.ORB"}) {
        const auto lines = CrLfLines(file);
        ASSERT_EQ(lines.size(), 16u) << file;
        for (size_t k = 1; k <= 16; ++k) {
            const std::string name = k == 16 ? "165" : Trim(AspectName(static_cast<int>(k) + 1));
            EXPECT_NE(lines[k - 1].find(name, 7), std::string::npos) << file << " line " << k;
        }
    }
    for (size_t k = 1; k <= 16; ++k) {
        EXPECT_GT(career[k], 0) << k;
        EXPECT_LE(career[k], natal[k]) << k;
        if (k <= 5) {
            EXPECT_LT(career[k], natal[k]) << k;
        }
    }
    // The aspects that are tested (all but the parallel) have disjoint
    // windows, so no separation depends on the order of the tests.
    for (const OrbTable* t : {&natal, &career}) {
        std::vector<std::pair<double, double>> windows;
        for (size_t code = 2; code <= 17; ++code) {
            if (code == 7) continue;
            const double a = AspectAngle[code], orb = (*t)[code - 1];
            windows.push_back({std::max(0.0, a - orb), std::min(180.0, a + orb)});
        }
        std::sort(windows.begin(), windows.end());
        for (size_t i = 1; i < windows.size(); ++i)
            EXPECT_LT(windows[i - 1].second, windows[i].first) << windows[i].first;
    }
}
