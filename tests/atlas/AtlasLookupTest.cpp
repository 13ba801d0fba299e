// The Lookup button's conversions: seconds of arc to the `AtlasLong` and
// `AtlasLat` texts, the zone from the kind-of-time code, the birth hour on
// the 24-hour clock.
#include <gtest/gtest.h>

#include "atlas/AtlasLookup.h"

namespace kal {
namespace {

double Seconds(int degrees, int minutes, double seconds) {
    return degrees * 3600.0 + minutes * 60.0 + seconds;
}

TEST(AtlasAngles, DegreesAndRoundedMinutes) {
    struct Row {
        const char* what;
        double seconds;
        int degrees, minutes;
        bool negative;
    } rows[] = {
        {"71 3 59.9 rounds up", Seconds(71, 3, 59.9), 71, 4, false},
        {"a minute of 60 carries", Seconds(71, 59, 45), 72, 0, false},
        {"carry at 179 59 59", Seconds(179, 59, 59), 180, 0, false},
        {"half a minute, odd below: up", Seconds(0, 3, 30), 0, 4, false},
        {"half a minute, even below: down", Seconds(0, 2, 30), 0, 2, false},
        {"negative keeps its sign apart", -Seconds(33, 52, 10), 33, 52, true},
        {"just below zero", -20, 0, 0, true},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        DegreesMinutes dm = ToDegreesMinutes(r.seconds);
        EXPECT_EQ(dm.degrees, r.degrees);
        EXPECT_EQ(dm.minutes, r.minutes);
        EXPECT_EQ(dm.negative, r.negative);
    }
}

TEST(AtlasAngles, TextsWithLettersAndLeadingSpaces) {
    EXPECT_EQ(AtlasLongText(Seconds(71, 3, 59.9)), " 71W 4");
    EXPECT_EQ(AtlasLongText(-Seconds(11, 34, 32)), " 11E 35");
    EXPECT_EQ(AtlasLongText(0), " 0W 0");
    EXPECT_EQ(AtlasLatText(Seconds(48, 8, 15)), " 48N 8");
    EXPECT_EQ(AtlasLatText(-Seconds(33, 52, 10)), " 33S 52");
}

TEST(AtlasZone, KindOfTimeCodes) {
    struct Row {
        int zone900, kind;
        float hours;
        bool lmt;
    } rows[] = {
        {4500, 0, 5.0f, false},      {4500, 1, 4.0f, false},   {4500, 2, 4.0f, false},
        {0, 3, -2.0f, false},        {-4950, 1, -6.5f, false}, {-9000, 1, -11.0f, false},
        {5808, 4, 6.4533334f, true}, {-900, -1, -1.0f, true},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::to_string(r.zone900) + " kind " + std::to_string(r.kind));
        AtlasZoneValue z = AtlasZoneFromKind(r.zone900, r.kind);
        EXPECT_FLOAT_EQ(z.hours, r.hours);
        EXPECT_EQ(z.localMeanTime, r.lmt);
    }
}

// The hour on the 24-hour clock: 12 A.M. is 0, 12 P.M. is 12.
TEST(AtlasHour, BirthClockFromTheInputTexts) {
    struct Row {
        const char *hour, *minute;
        bool pm;
        int h, m, s;
    } rows[] = {
        {"12", "0", false, 0, 0, 0},  {"12", "5", true, 12, 5, 0},
        {"1", "43", true, 13, 43, 0}, {"11", "0", true, 23, 0, 0},
        {"1", "0", false, 1, 0, 0},   {"11", "0", false, 11, 0, 0},
        {"", "", false, 0, 0, 0},     {"10", "43.5", false, 10, 43, 30},
    };
    for (const auto& r : rows) {
        LocalClock c = BirthClock("8", "1", "1944", r.hour, r.minute, r.pm);
        EXPECT_EQ(c.year * 10000 + c.month * 100 + c.day, 19440801);
        EXPECT_EQ(c.hour * 10000 + c.minute * 100 + c.second, r.h * 10000 + r.m * 100 + r.s)
            << r.hour << ":" << r.minute << (r.pm ? " PM" : " AM");
    }
}

} // namespace
} // namespace kal
