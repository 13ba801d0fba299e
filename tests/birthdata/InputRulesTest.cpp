// The input window's rules: "Now" from a clock reading and the home place,
// the birth-hour check, the key filters and the zone sign of E/W.
#include <gtest/gtest.h>

#include "birthdata/CitiesFile.h"
#include "birthdata/InputRules.h"
#include "birthdata/Record.h"

namespace kal {
namespace {

std::tm At(int year, int month, int day, int hour, int minute) {
    std::tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    return t;
}

TEST(FillNow, ClockReadingOnBothClockFormats) {
    Options o;
    struct Row {
        int hour;
        int timeFormat;
        const char* shown;
        bool am;
    } rows[] = {{0, 0, "12", true}, {12, 0, "12", false}, {17, 0, "5", false},
                {0, 1, "12", true}, {11, 1, "11", true},  {12, 1, "12", false}};
    for (const auto& r : rows) {
        SCOPED_TRACE(std::to_string(r.hour) + "/" + std::to_string(r.timeFormat));
        InputFields in;
        FillNow(in, At(2024, 3, 7, r.hour, 5), r.timeFormat, o);
        EXPECT_EQ(in.txtName, "Now");
        EXPECT_EQ(in.txtMonth, "3");
        EXPECT_EQ(in.txtDay, "7");
        EXPECT_EQ(in.txtYear, "2024");
        EXPECT_EQ(in.txtBirthMinute, "5");
        EXPECT_EQ(in.txtBirthHour, r.shown);
        EXPECT_EQ(in.optAM, r.am);
    }
}

TEST(FillNow, HomePlaceFromOptions) {
    // Options 18 to 24: zone, longitude, East, latitude, South.
    Options o;
    const float home[] = {-1, 13, 24, 1, 52, 31, 0};
    for (int k = 0; k < 7; ++k) o[18 + k] = home[k];
    InputFields in;
    FillNow(in, At(2024, 1, 1, 10, 0), 0, o);
    EXPECT_EQ(in.txtTZ, "-1");
    EXPECT_TRUE(in.optEast);
    EXPECT_EQ(in.txtLongDeg, "13");
    EXPECT_EQ(in.txtLongMin, "24");
    EXPECT_EQ(in.txtLatDeg, "52");
    EXPECT_EQ(in.txtLatMin, "31");
    EXPECT_FALSE(in.optSouth);
    o[21] = 0;
    o[24] = 2;
    o[18] = 5.5f;
    FillHomePlace(in, o);
    EXPECT_FALSE(in.optEast);
    EXPECT_TRUE(in.optSouth);
    EXPECT_EQ(in.txtTZ, "5.5");
}

// An empty hour and 17 typed are the input window's test.
TEST(BirthHourCheck, RoundsOfTheCheck) {
    EXPECT_EQ(CheckBirthHour("0").newText, "12");
    auto c = CheckBirthHour("5");
    EXPECT_FALSE(c.newText);
    EXPECT_FALSE(c.setPM);
    EXPECT_FALSE(c.message);
    EXPECT_EQ(CheckBirthHour("1x").message, TypingTooFastMessage());
    bool pm = false;
    EXPECT_EQ(SettleBirthHour("25", pm), "1");
    EXPECT_TRUE(pm);
    EXPECT_EQ(SettleBirthHour("12", pm), "12");
    EXPECT_FALSE(pm);
}

TEST(InputKeys, FiltersPerField) {
    // Digits and backspace everywhere; "." only in the minute and the zone,
    // "-" only in the year and the zone; the texts take anything.
    for (const char* f : {"txtMonth", "txtDay", "txtBirthHour", "txtLongDeg", "txtLongMin",
                          "txtLatDeg", "txtLatMin", "txtBirthMinute", "txtYear", "txtTZ"}) {
        SCOPED_TRACE(f);
        const std::string name = f;
        EXPECT_TRUE(InputKeyAccepted(f, '7'));
        EXPECT_TRUE(InputKeyAccepted(f, '\b'));
        EXPECT_FALSE(InputKeyAccepted(f, 'e'));
        EXPECT_EQ(InputKeyAccepted(f, '.'), name == "txtBirthMinute" || name == "txtTZ");
        EXPECT_EQ(InputKeyAccepted(f, '-'), name == "txtYear" || name == "txtTZ");
    }
    EXPECT_TRUE(InputKeyAccepted("txtName", ','));
    EXPECT_TRUE(InputKeyAccepted("txtEmail", '@'));
}

TEST(InputKeys, ZoneSignFollowsDirection) {
    EXPECT_EQ(ZoneForDirection("-5", false), "5");
    EXPECT_EQ(ZoneForDirection("-5.5", true), "-5.5");
    EXPECT_EQ(ZoneForDirection(" 3", false), "3");
    EXPECT_EQ(ZoneForDirection("0", true), "0");
}

TEST(AtlasPlace, FillsZoneAndCoordinatesAroundTheLetters) {
    struct Row {
        const char* what;
        const char* atlasLong;
        const char* atlasLat;
        float zone;
        const char* filled; // tz long-deg long-min E/W lat-deg lat-min N/S
    } rows[] = {
        {"Munich in summer 1944", " 11E 35", " 48N 8", -2, "-2 11 35 E 48 8 N"},
        {"a West place", " 71W 4", " 42N 21", 4, "4 71 4 W 42 21 N"},
        {"south and east", " 151E 12", " 33S 52", -11, "-11 151 12 E 33 52 S"},
        // The zone keeps its sign: London in summer time is West of
        // Greenwich with a zone East of it.
        {"zone against the direction", " 0W 8", " 51N 30", -1, "-1 0 8 W 51 30 N"},
        {"local mean time", " 96W 48", " 32N 47", 6.4533334f, "6.453333 96 48 W 32 47 N"},
        {"no latitude letter", " 10E 0", " 5", 0, "0 10 0 E x x N"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        InputFields in;
        in.txtLatDeg = in.txtLatMin = "x";
        ASSERT_TRUE(ApplyAtlasPlace(in, r.atlasLong, r.atlasLat, r.zone));
        EXPECT_EQ(in.txtTZ + " " + in.txtLongDeg + " " + in.txtLongMin + " " +
                      (in.optEast ? "E" : "W") + " " + in.txtLatDeg + " " + in.txtLatMin + " " +
                      (in.optSouth ? "S" : "N"),
                  r.filled);
    }
    // Without a direction letter, or beyond 180 degrees, nothing is filled.
    for (const char* bad : {"", " 71 4", " 181W 0"}) {
        InputFields in;
        in.txtTZ = "5";
        EXPECT_FALSE(ApplyAtlasPlace(in, bad, " 42N 21", 4)) << bad;
        EXPECT_EQ(in.txtTZ, "5");
        EXPECT_TRUE(in.txtLatDeg.empty());
    }
}

TEST(TransferRecord, MinutesOfTimeAndCoordinates) {
    auto r = ParseRecordLine("P,05 Mar 2007,9.05,p,-3,-005.07,-33.52,");
    InputFields in;
    ASSERT_FALSE(TransferRecord(*r, 0, in));
    EXPECT_EQ(in.txtBirthHour, "9");
    EXPECT_EQ(in.txtBirthMinute, "5");
    EXPECT_FALSE(in.optAM);
    EXPECT_EQ(in.txtLongDeg, "5");
    EXPECT_EQ(in.txtLongMin, "7");
    EXPECT_TRUE(in.optEast);
    EXPECT_EQ(in.txtLatMin, "52");
    EXPECT_TRUE(in.optSouth);
    // Date order 2 rearranges the stored date once.
    ASSERT_FALSE(TransferRecord(*r, 2, in));
    EXPECT_EQ(r->RecDate, "2007 Mar 05");
    ASSERT_FALSE(TransferRecord(*r, 2, in));
    EXPECT_EQ(r->RecDate, "2007 Mar 05");
    EXPECT_EQ(in.txtMonth, "3");
    EXPECT_EQ(in.txtDay, "5");
}

TEST(TransferRecord, TwoDigitYearsAsASystemDateReaderReadsThem) {
    const struct {
        const char* date;
        int order;
        const char* year;
    } rows[] = {
        {"12 May 59", 0, "1959"}, {"12 May 30", 1, "1930"},   {"12 May 29", 0, "2029"},
        {"12 May 05", 2, "2005"}, {"12 May 0059", 0, "59"},   {"12 May 1959", 2, "1959"},
        {"59 May 12", 0, "1959"}, {"1959 May 12", 0, "1959"},
    };
    for (const auto& row : rows) {
        auto r = ParseRecordLine(std::string("P,") + row.date + ",9.05,A,5,75.23,39.45,");
        InputFields in;
        ASSERT_FALSE(TransferRecord(*r, row.order, in)) << row.date;
        EXPECT_EQ(in.txtYear, row.year) << row.date;
        EXPECT_EQ(in.txtMonth + "/" + in.txtDay, "5/12") << row.date;
    }
}

TEST(TransferRecord, NumbersAFieldCannotShowAreFormatErrors) {
    const std::string huge = "99999999999999999999";
    const std::string endless(400, '9');
    for (const std::string& line : {"P,12 May 1959," + huge + ",A,6,75.23,39.45,",
                                    "P,12 May 1959,10.43,A," + huge + ",75.23,39.45,",
                                    "P,12 May 1959,10.43,A,6," + huge + ",39.45,",
                                    "P,12 May 1959,10.43,A,6,75.23," + huge + ",",
                                    "P,12 May 1959,10.43,A,6," + endless + ",39.45,",
                                    "P,12 May 1959,10.43,A,6,75.23," + endless + ","}) {
        InputFields in;
        BirthRecord r = *ParseRecordLine(line);
        EXPECT_EQ(TransferRecord(r, 0, in), RecordFormatError()) << line;
    }
    // The largest values a field shows in plain digits still go through, to
    // the range checks of the calculation.
    InputFields in;
    BirthRecord big = *ParseRecordLine("P,12 May 1959,10.43,A,6,99999999999999.5,39.45,");
    ASSERT_FALSE(TransferRecord(big, 0, in));
    EXPECT_EQ(in.txtLongDeg, "99999999999999");
    EXPECT_EQ(TransferPlace(*ParseCityLine("X,Y,71W04,42N21," + huge), in), CityFormatError());
}

} // namespace
} // namespace kal
