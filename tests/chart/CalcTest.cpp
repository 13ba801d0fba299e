// The calculation's own arithmetic: input checks, 12-hour time and zone to
// universal time, the program's Julian day, sidereal time, house placement.
#include <gtest/gtest.h>

#include <swephexp.h>

#include "chart/Calc.h"

using namespace kal;

namespace {

// Name, date, 10:43 A.M., zone, 75 West 23, 39 North 45, no e-mail.
InputFields Valid() {
    return {"Test", "5",  "12", "1959", "10", "43",  "6",  "75",
            "23",   "39", "45", "",     true, false, false};
}

const std::string kInputMsg = "Error in natal input data section. Please correct.";
const std::string kLatMsg =
    "Your latitude is too high. Lower to 66 degrees, 00 minutes or below OR change house systems.";

std::vector<std::string> Texts(const Messages& m) {
    std::vector<std::string> t;
    for (const auto& x : m) {
        EXPECT_EQ(x.caption, "Warning!");
        EXPECT_EQ(x.icon, Icon::Information);
        t.push_back(x.text);
    }
    return t;
}

} // namespace

TEST(InputChecks, OneMessagePerFailingTest) {
    // The month, day, hour, minute and coordinate ranges know nothing of
    // month lengths. The zone's limits are the hostile-values test's.
    const struct {
        const char* name;
        void (*edit)(InputFields&);
        char houses;
        size_t messages;
    } rows[] = {
        {"valid", [](InputFields&) {}, 'P', 0},
        {"31 February", [](InputFields& in) { in.txtMonth = "2", in.txtDay = "31"; }, 'P', 0},
        {"three ranges",
         [](InputFields& in) { in.txtMonth = "13", in.txtBirthMinute = "60", in.txtLatMin = "75"; },
         'O', 3},
        {"empty hour and zone", [](InputFields& in) { in.txtBirthHour = "", in.txtTZ = ""; }, 'O',
         1},
        {"year 2100", [](InputFields& in) { in.txtYear = "2100"; }, 'P', 1},
        {"longitude 181", [](InputFields& in) { in.txtLongDeg = "181"; }, 'P', 1},
        {"hour 13", [](InputFields& in) { in.txtBirthHour = "13"; }, 'P', 1},
        {"latitude 91", [](InputFields& in) { in.txtLatDeg = "91"; }, 'O', 1},
        // Beyond the pole by its minutes.
        {"latitude 90 30", [](InputFields& in) { in.txtLatDeg = "90", in.txtLatMin = "30"; }, 'O',
         1},
        {"latitude 90 00", [](InputFields& in) { in.txtLatDeg = "90", in.txtLatMin = "0"; }, 'O',
         0},
        {"year 1", [](InputFields& in) { in.txtYear = "1"; }, 'P', 0},
        // The latitude limit holds only for Placidus and Koch.
        {"66 00 P", [](InputFields& in) { in.txtLatDeg = "66", in.txtLatMin = "0"; }, 'P', 0},
        {"66 01 K", [](InputFields& in) { in.txtLatDeg = "66", in.txtLatMin = "1"; }, 'K', 1},
        {"70 S P", [](InputFields& in) { in.txtLatDeg = "70", in.optSouth = true; }, 'P', 1},
        {"70 S O", [](InputFields& in) { in.txtLatDeg = "70", in.optSouth = true; }, 'O', 0},
        {"70 S R", [](InputFields& in) { in.txtLatDeg = "70", in.optSouth = true; }, 'R', 0},
    };
    for (const auto& r : rows) {
        InputFields in = Valid();
        r.edit(in);
        EXPECT_EQ(InputChecks(in, r.houses).size(), r.messages) << r.name;
    }
    // An empty month fails both the zero and the empty test.
    InputFields in = Valid();
    in.txtMonth = "";
    EXPECT_EQ(Texts(InputChecks(in, 'P')), (std::vector<std::string>{kInputMsg, kInputMsg}));
    in = Valid();
    in.txtLatDeg = "66";
    in.txtLatMin = "1";
    EXPECT_EQ(Texts(InputChecks(in, 'P')), std::vector<std::string>{kLatMsg});
    // A year before 1 gets a message of its own.
    in = Valid();
    in.txtYear = "-5000";
    EXPECT_EQ(Texts(InputChecks(in, 'P')),
              std::vector<std::string>{"The year -5000 cannot be calculated: charts are cast for "
                                       "the years 1 to 2099 of the common era. Please correct the "
                                       "birth year."});
}

TEST(CalcInputs, SteppedRecord) {
    // 1 March 2000, 12:05 A.M., zone -1, 13 East 24, 52 North 31.
    const SteppedRecord r{3, 1, 2000, 12, 5, 0, -1, 13, 24, 52, 31, 0, 0};
    Chart c;
    FillIdentityFromStepped(c, r, "Anna", 1);
    SetCalcInputsFromStepped(c, r);
    EXPECT_EQ(c.ChartName, "Anna - in update mode");
    EXPECT_EQ(c.ChartDate, "1/3/2000");
    EXPECT_EQ(c.ChartEW, "East");
    EXPECT_FLOAT_EQ(c.ChartLong, -13.24f);
    EXPECT_FLOAT_EQ(c.CalcHour, -1);
    EXPECT_DOUBLE_EQ(c.GeoLong, 13.4);
    EXPECT_FLOAT_EQ(c.ChartTime, 12.05f);
}

TEST(ChartJulDay, AgreesWithTheEphemerisCalendar) {
    // The program's integer day-number formula against the library's
    // Gregorian Julian day, for A.M. and P.M. times and zones both ways.
    struct Row {
        int y, m, d;
        float time;
        const char* ampm;
        float tz;
    } rows[] = {{1959, 5, 12, 10.43f, "A.M.", 6},
                {2000, 1, 1, 12.0f, "P.M.", 0},
                {1900, 3, 1, 12.30f, "A.M.", -1},
                {2024, 2, 29, 11.59f, "P.M.", 5.5f},
                {1582, 10, 15, 1.0f, "A.M.", 0}};
    for (const auto& r : rows) {
        Chart c;
        c.ChartYear = static_cast<short>(r.y);
        c.ChartMonth = static_cast<short>(r.m);
        c.ChartDay = static_cast<short>(r.d);
        c.ChartTime = r.time;
        c.ChartAMPM = r.ampm;
        c.ChartTZ = r.tz;
        CalcJulDayLocal(c);
        double t = r.time;
        if (std::floor(t) == 12) t -= 12;
        double hours = HhmmToHours(t) + (std::string(r.ampm) == "P.M." ? 12 : 0) + r.tz;
        EXPECT_NEAR(c.ChartJulDay, swe_julday(r.y, r.m, r.d, hours, SE_GREG_CAL), 1e-9) << r.y;
    }
}

TEST(SiderealTime, EveryPartTruncated) {
    EXPECT_EQ(SiderealTimeText(359.99), "23h 59m 57s");
    EXPECT_EQ(SiderealTimeText(0), "00h 00m 00s");
    EXPECT_EQ(SiderealTimeText(45.0724912), "03h 00m 17s");
    EXPECT_EQ(SiderealTimeText(359.99999999), "23h 59m 59s");
}

namespace {
Chart WithCusps(std::initializer_list<double> byIndex) {
    Chart c;
    int k = 1;
    for (double v : byIndex) c.CuspTable[static_cast<size_t>(k++)] = v;
    return c;
}
} // namespace

TEST(FindPlanetHouses, CuspsOpenTheirHouse) {
    // Equal houses with the Ascendant at 0 Aries: cusp index 4 (1st house) = 0.
    Chart c = WithCusps({270, 300, 330, 0, 30, 60, 90, 120, 150, 180, 210, 240});
    c.PlanetLong[Sun] = 0;            // on the Ascendant: 1st house
    c.PlanetLong[Moon] = 359.5;       // 12th house, which spans 330..360
    c.PlanetLong[Mercury] = 29.99999; // within 0.1" of the 2nd cusp: 2nd house
    c.PlanetLong[Venus] = 29.9999;    // 0.36" before it: still 1st
    c.PlanetLong[Mars] = 270;         // on the Midheaven: 10th
    c.PlanetLong[Asc] = 0;
    c.PlanetLong[MC] = 270;
    FindPlanetHouses(c);
    EXPECT_EQ(c.HouseLabelOf(Sun), " 1ST");
    EXPECT_EQ(c.HouseLabelOf(Moon), "12TH");
    EXPECT_EQ(c.HouseLabelOf(Mercury), " 2ND");
    EXPECT_EQ(c.HouseLabelOf(Venus), " 1ST");
    EXPECT_EQ(c.HouseLabelOf(Mars), "10TH");
    EXPECT_EQ(c.HouseLabelOf(Asc), " 1ST");
    EXPECT_EQ(c.HouseLabelOf(MC), "10TH");
    EXPECT_EQ(c.HouseNumberOf(Moon), 12);
}

TEST(FindPlanetHouses, HouseSpanningZeroAries) {
    Chart c = WithCusps({200, 230, 260, 290, 320, 350, 20, 50, 80, 110, 140, 170});
    c.PlanetLong[Sun] = 359.5;
    c.PlanetLong[Moon] = 0.5;
    c.PlanetLong[Mercury] = 19.99;
    FindPlanetHouses(c);
    EXPECT_EQ(c.HouseLabelOf(Sun), " 3RD");
    EXPECT_EQ(c.HouseLabelOf(Moon), " 3RD");
    EXPECT_EQ(c.HouseLabelOf(Mercury), " 3RD");
}

TEST(HouseSystems, Option27SelectsInMenuOrder) {
    EXPECT_EQ(HouseLetterOfOption(2), 'R');
    EXPECT_EQ(HouseLetterOfOption(4), 'C');
    EXPECT_EQ(HouseLetterOfOption(7), 'T');
    for (float other : {0.0f, 1.0f, 4.5f, 8.0f, -3.0f}) EXPECT_EQ(HouseLetterOfOption(other), 'P');
}
