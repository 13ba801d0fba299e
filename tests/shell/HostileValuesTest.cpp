// Values at and past the edges of what the program is meant for: years the
// ephemeris files do not cover, the pole in every house system, zones at
// the limits of the input checks, a names file of 100,000 records and lines
// of a megabyte. The program stays up, stores what the library answers and
// refuses what its checks refuse.
#include <gtest/gtest.h>
#include <swephexp.h>

#include <cmath>

#include "TestSupport.h"
#include "base/Options.h"
#include "base/TextFile.h"
#include "base/VbText.h"
#include "birthdata/CitiesFile.h"
#include "birthdata/NamesFile.h"
#include "birthdata/Record.h"
#include "birthdata/TimeZones.h"
#include "shell/Session.h"
#include "shell/Settings.h"

using namespace kal;

namespace {

InputFields Fields(const std::string& line, int dateOrder = 0) {
    auto in = test::FieldsOfRecord(line, dateOrder);
    EXPECT_TRUE(in) << line;
    return in.value_or(InputFields{});
}

// 12 May, 10:43 A.M., zone 6, 75 West 23, at the given year and latitude.
SteppedRecord Stepped(short year, short latDeg, short latMin, bool south = false) {
    return {5, 12, year, 10, 43, 0, 6, 75, 23, latDeg, latMin, 1, static_cast<short>(south)};
}

class Hostile : public ::testing::Test {
  protected:
    void SetUp() override { s.Open(dir.path()); }
    void TearDown() override { s.Close(); }

    // Every position, cusp and speed a real number, every body in a house.
    void ExpectWholeChart(const std::string& what) {
        const Chart& c = s.calc.chart;
        for (int b = 1; b <= NumBodies; ++b) {
            SCOPED_TRACE(what + " body " + std::to_string(b));
            const double lon = c.NatalLong[static_cast<size_t>(b)];
            EXPECT_TRUE(lon >= 0 && lon < 360) << lon; // false for NaN too
            EXPECT_TRUE(std::isfinite(c.NatalSpeed[static_cast<size_t>(b)]));
            const int h = c.HouseNumberOf(b);
            EXPECT_TRUE(h >= 1 && h <= 12) << h;
        }
        for (int k = 1; k <= 12; ++k)
            EXPECT_TRUE(std::isfinite(c.NatalCusp[static_cast<size_t>(k)]));
        for (const auto& line : s.listing.out.AllLines) {
            EXPECT_EQ(line.find("nan"), std::string::npos) << what << ": " << line;
            EXPECT_EQ(line.find("inf"), std::string::npos) << what << ": " << line;
        }
    }

    // The positions are those the library gives for the chart's moment
    // (where it gives any).
    void ExpectLibraryAnswer(const std::string& what) {
        const Chart& c = s.calc.chart;
        const double et = c.JulDayUT + swe_deltat(c.JulDayUT);
        const std::pair<int, int> bodies[] = {{SE_SUN, Sun},
                                              {SE_MOON, Moon},
                                              {SE_MARS, Mars},
                                              {SE_PLUTO, Pluto},
                                              {SE_MEAN_NODE, NNode}};
        for (auto [ipl, body] : bodies) {
            double xx[6] = {};
            char serr[256] = "";
            if (swe_calc(et, ipl, SEFLG_SWIEPH | SEFLG_SPEED, xx, serr) < 0) continue;
            EXPECT_NEAR(c.NatalLong[static_cast<size_t>(body)], xx[0], 1e-9) << what << " " << body;
        }
    }

    test::ScratchAppDir dir;
    Session s;
};

// The shipped files cover 1800 to 2399; before and after that the library
// answers from its analytical model, and that answer is the chart.
TEST_F(Hostile, YearsOutsideTheEphemerisFilesKeepTheLibrarysAnswer) {
    for (const char* year : {"1000", "1500", "1799"}) {
        const std::string line = std::string("Early,12 May ") + year + ",10.43,A,6,75.23,39.45,";
        ASSERT_TRUE(s.Calculate(Fields(line)).calculated) << year;
        ExpectWholeChart(year);
        ExpectLibraryAnswer(year);
    }
    // Update mode has no year check; past the analytical model's range the
    // library answers with an error, and the program stays up.
    for (short year : {2400, 2999, 5000, 32767}) {
        s.Calculate(Stepped(year, 39, 45));
        ExpectLibraryAnswer(std::to_string(year));
    }
}

// 89 degrees 59 minutes has no houses in the quadrant systems the input
// checks refuse there; update mode skips the checks, and the library falls
// back to another system rather than leave the cusps undefined.
TEST_F(Hostile, LatitudeAtThePoleInEveryHouseSystemThroughUpdateMode) {
    ASSERT_TRUE(s.Calculate(Fields("Pole,12 May 1959,10.43,A,6,75.23,39.45,")).calculated);
    for (char houses : std::string("PKRCOBT")) {
        for (bool south : {false, true}) {
            s.calc.HouseSystem = houses;
            const std::string what = std::string(1, houses) + (south ? " south" : " north");
            ASSERT_TRUE(s.Calculate(Stepped(1959, 89, 59, south)).calculated) << what;
            EXPECT_EQ(s.calc.UpdateMode, 1);
            ExpectWholeChart(what);
            EXPECT_FLOAT_EQ(s.calc.chart.ChartLat, south ? -89.59f : 89.59f);
        }
    }
}

// The input checks take zones from -13 to 12 (East of -2 only with East
// chosen); the universal time moves with the zone, and a zone a minute past
// the limits is refused.
TEST_F(Hostile, ZonesAtTheLimitsOfTheChecks) {
    auto jd = [&](const char* tz, bool east) {
        InputFields in = Fields("Zone,12 May 1959,10.43,A,0,75.23,39.45,");
        in.txtTZ = tz;
        in.optEast = east;
        EXPECT_TRUE(s.Calculate(in).calculated) << tz;
        ExpectWholeChart(tz);
        return s.calc.chart.JulDayUT;
    };
    const double base = jd("0", false);
    EXPECT_NEAR(jd("12", false) - base, 0.5, 1e-9);
    EXPECT_NEAR(jd("-13", true) - base, -13.0 / 24, 1e-9);
    EXPECT_NEAR(jd("-2", false) - base, -2.0 / 24, 1e-9);

    for (auto [tz, east] : {std::pair{"12.01", false}, {"-13.01", true}, {"-2.01", false}}) {
        InputFields in = Fields("Zone,12 May 1959,10.43,A,0,75.23,39.45,");
        in.txtTZ = tz;
        in.optEast = east;
        EXPECT_FALSE(s.Calculate(in).calculated) << tz;
    }
    // Update mode has no checks: a stepped zone far past them still gives a
    // whole chart.
    for (float tz : {-1000.0f, 1000.0f}) {
        SteppedRecord r = Stepped(1959, 39, 45);
        r.UpdTZ = tz;
        ASSERT_TRUE(s.Calculate(r).calculated);
        ExpectWholeChart("stepped zone");
    }
}

// TZ.DAT zones at the limits of a number: the list line is made for each;
// a pick refuses what is no zone (the corrupt-table message, or the input
// checks' refusal of the zone field it gives) and never lets a value through
// as another: the field holds the number the table holds.
TEST(HostileFiles, ZoneTableOffsetsAtTheLimits) {
    ZoneTable t = ParseZoneTable("\"Far East\",FE,-13\r\n\"Past it\",PI,1e308\r\n"
                                 "\"Huge\",HG,99999999999999\r\n"
                                 "\"Twenty digits\",TD,99999999999999999999\r\n"
                                 "\"Exponent\",EX,1E+20\r\n\"Tiny\",TN,-0.0000001\r\n"
                                 "\"Tinier\",TR,0.00000000000000000001\r\n");
    ASSERT_FALSE(t.corrupt);
    ASSERT_EQ(t.ZoneName.size(), 7u);
    for (size_t i = 0; i < t.ZoneName.size(); ++i) {
        SCOPED_TRACE(t.ZoneName[i]);
        const std::string line = ZoneListLine(t.ZoneName[i], t.ZoneCode[i], t.ZoneOffset[i]);
        EXPECT_EQ(ZoneNameOfLine(line), t.ZoneName[i]);
        InputFields z = Fields("Zone,12 May 1959,10.43,A,6,75.23,39.45,");
        auto m = ApplyZone(t, line, z);
        const bool passes = !m && InputChecks(z, 'P').empty();
        if (m) {
            EXPECT_EQ(*m, TzCorruptMessage());
        }
        const double offset = std::strtod(t.ZoneOffset[i].c_str(), nullptr);
        EXPECT_EQ(passes, std::fabs(offset) <= 13) << "zone field " << z.txtTZ;
        if (!passes) continue;
        EXPECT_NEAR(Val(z.txtTZ), offset, 1e-6) << z.txtTZ;
        EXPECT_EQ(z.optEast, offset < 0);
    }
}

// 100,000 records: every one is listed in file order, the last one is found
// and picked, and the list is read in well under the time a user waits.
TEST(HostileFiles, NamesFileOfOneHundredThousandRecords) {
    test::ScratchAppDir dir;
    std::string text;
    for (int k = 0; k < 100000; ++k)
        text += "Person " + std::to_string(k) + ",12 May " + std::to_string(1900 + k % 200) +
                ",10.43,A,6,75.23,39.45,p" + std::to_string(k) + "@example.org\r\n";
    dir.Write("BIG.FIL", text);
    NamesList list = LoadNamesFile(dir.path() / "BIG.FIL");
    ASSERT_TRUE(list.opened);
    EXPECT_TRUE(list.errors.empty());
    ASSERT_EQ(list.records.size(), 100000u);
    int last = FindRecord(list.records, "Person 99999");
    ASSERT_EQ(last, 99999);
    InputFields in;
    ASSERT_FALSE(TransferRecord(list.records[static_cast<size_t>(last)], 0, in));
    EXPECT_EQ(in.txtYear, std::to_string(1900 + 99999 % 200));
    EXPECT_EQ(in.txtEmail, "p99999@example.org");
}

// A line of a megabyte in each kind of file: a names record with a long
// name is calculated and its header carries the whole name; a long cities
// line is one place; options, orbs and settings read what their formats read
// from the start of the line.
TEST(HostileFiles, LinesOfAMegabyte) {
    test::ScratchAppDir dir;
    const std::string huge(1 << 20, 'x');

    dir.Write("LONG.FIL", huge +
                              ",12 May 1959,10.43,A,6,75.23,39.45,\r\nShort,12 May 1959,10.43,"
                              "A,6,75.23,39.45,\r\n" +
                              huge + "\r\n");
    NamesList names = LoadNamesFile(dir.path() / "LONG.FIL");
    ASSERT_EQ(names.records.size(), 2u);
    EXPECT_EQ(names.errors.size(), 1u);
    Session s;
    s.Open(dir.path());
    InputFields in;
    ASSERT_FALSE(TransferRecord(names.records[0], 0, in));
    ASSERT_TRUE(s.Calculate(in).calculated);
    bool named = false;
    for (const auto& line : s.listing.out.AllLines) named = named || line.find(huge) != line.npos;
    EXPECT_TRUE(named);
    s.Close();

    dir.Write("LONG.LL", "Place," + huge + ",71W04,42N21,5\r\n" + huge + "\r\n");
    CitiesList places = LoadCitiesFile(dir.path() / "LONG.LL");
    ASSERT_EQ(places.places.size(), 1u);
    EXPECT_EQ(places.errors.size(), 1u);
    InputFields at;
    EXPECT_FALSE(TransferPlace(places.places[0], at));
    EXPECT_EQ(at.txtLatDeg, "42");

    Options o;
    o.ReadOptionLines({"3" + huge, std::string(1 << 20, '9')});
    EXPECT_EQ(o[1], 3.0f);
    EXPECT_EQ(o[2], 9999999.0f);

    OrbTable orbs{};
    ReadOrbLines({"8.5" + huge}, orbs);
    EXPECT_EQ(orbs[1], 8.5f);

    Settings set;
    std::string data = "NAMES.FIL", geo = "GA_MA.LL";
    ApplySettingsLines({"FontSize=9" + huge, "DataFile=" + huge}, set, data, geo);
    EXPECT_DOUBLE_EQ(set.ListFontSize, 9);
    EXPECT_EQ(data, huge);
}

} // namespace
