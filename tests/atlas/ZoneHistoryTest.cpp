// The zone in force on a date and clock time, from the system's zone data,
// against dates whose civil time is on record.
#include <gtest/gtest.h>

#include "atlas/AtlasLookup.h"
#include "atlas/ZoneHistory.h"

namespace kal {
namespace {

struct Expect {
    int zone900, kind, offsetSeconds;
};

void ExpectReading(const ZoneReading& r, const Expect& e) {
    EXPECT_EQ(r.zone900, e.zone900);
    EXPECT_EQ(r.kindOfTime, e.kind);
    EXPECT_EQ(r.offsetSeconds, e.offsetSeconds);
}

TEST(ZoneHistory, KnownDates) {
    struct Row {
        const char* what;
        const char* zone;
        double longitude;
        LocalClock clock;
        Expect expect;
        float atlasZone;
    } rows[] = {
        // New York City kept daylight time from the last Sunday of April to
        // the last Sunday of October 1955-1966 (city law; EDT, UT-4).
        {"New York 1959", "America/New_York", -74.006, {1959, 5, 12, 10, 43}, {4500, 1, -14400}, 4},
        // British Double Summer Time, 4 May to 10 August 1941 (UT+2 over GMT).
        {"London 1941", "Europe/London", -0.126, {1941, 7, 1, 12, 0}, {0, 3, 7200}, -2},
        // Indian war time, 1 September 1942 to 15 October 1945 (UT+6:30
        // over standard time UT+5:30).
        {"Kolkata 1943", "Asia/Kolkata", 88.363, {1943, 6, 15, 12, 0}, {-4950, 1, 23400}, -6.5},
        // New South Wales summer time, 31 October 1999 to 26 March 2000
        // (AEDT, UT+11 over UT+10).
        {"Sydney 2000", "Australia/Sydney", 151.207, {2000, 1, 15, 12, 0}, {-9000, 1, 39600}, -11},
        // Germany kept summer time (CEST, UT+2) from 3 April to 2 October 1944.
        {"Munich 1944", "Europe/Berlin", 11.575, {1944, 8, 1, 10, 0}, {-900, 1, 7200}, -2},
        {"Munich winter 1950", "Europe/Berlin", 11.575, {1950, 1, 10, 10, 0}, {-900, 0, 3600}, -1},
        // Railway standard time came to Texas on 18 November 1883; before it
        // Dallas (96 deg 48.4 min West) kept its own mean time, 6h 27m 14s
        // behind Greenwich, not Chicago's 5h 50m 36s.
        {"Dallas 1870",
         "America/Chicago",
         -96.80667,
         {1870, 6, 1, 12, 0},
         {5808, 4, -23234},
         6.4533334f},
        // Lord Howe Island's summer time is half an hour (UT+11 over
        // UT+10:30): counted into the zone, so the zone is still the clock's.
        {"Lord Howe 2000",
         "Australia/Lord_Howe",
         159.08,
         {2000, 1, 15, 12, 0},
         {-9900, 0, 39600},
         -11},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        ZoneInForce z = FindZoneInForce(r.zone, r.longitude, r.clock);
        ASSERT_EQ(z.error, "");
        EXPECT_EQ(z.fit, ClockFit::Unique);
        ExpectReading(z.first, r.expect);
        EXPECT_FLOAT_EQ(AtlasZoneFromKind(z.first.zone900, z.first.kindOfTime).hours, r.atlasZone);
    }
}

TEST(ZoneHistory, ClockChangesGiveBothReadings) {
    // The gap of a spring change is read through the atlas command's test.
    // 1 November 2020: from 2:00 EDT back to 1:00 EST, so 1:30 came twice.
    ZoneInForce twice = FindZoneInForce("America/New_York", -74.006, {2020, 11, 1, 1, 30});
    EXPECT_EQ(twice.fit, ClockFit::Repeated);
    ExpectReading(twice.first, {4500, 1, -14400});
    ExpectReading(twice.second, {4500, 0, -18000});
    // Chicago's noon of 18 November 1883 set the clocks back from mean time
    // to Central time; for a place on Dallas' meridian the first reading is
    // its own mean time.
    ZoneInForce railway = FindZoneInForce("America/Chicago", -96.80667, {1883, 11, 18, 12, 5});
    EXPECT_EQ(railway.fit, ClockFit::Repeated);
    ExpectReading(railway.first, {5808, 4, -23234});
    ExpectReading(railway.second, {5400, 0, -21600});
}

// Debian builds its zone data so that every zone of zone.tab keeps its own
// history before 1970; data trimmed to 1970 would give Oslo Berlin's double
// summer time of 1945 (UT+3).
TEST(ZoneHistory, SystemDataKeepsEachZonesOwnPast) {
    ZoneInForce oslo = FindZoneInForce("Europe/Oslo", 10.75, {1945, 7, 1, 12, 0});
    ASSERT_EQ(oslo.error, "");
    ExpectReading(oslo.first, {-900, 1, 7200});
    ZoneInForce berlin = FindZoneInForce("Europe/Berlin", 13.4, {1945, 7, 1, 12, 0});
    ExpectReading(berlin.first, {-900, 3, 10800});
    EXPECT_FALSE(TzdataVersion().empty());
}

TEST(ZoneHistory, RefusesUnknownZonesAndDates) {
    EXPECT_NE(FindZoneInForce("Mars/Olympus_Mons", 0, {2000, 1, 1, 0, 0}).error, "");
    EXPECT_NE(FindZoneInForce("Europe/Paris", 2.35, {2001, 2, 29, 12, 0}).error, "");
    EXPECT_NE(FindZoneInForce("Europe/Paris", 2.35, {2001, 2, 28, 24, 0}).error, "");
    EXPECT_NE(FindZoneInForce("Europe/Paris", 2.35, {2001, 13, 1, 12, 0}).error, "");
}

} // namespace
} // namespace kal
