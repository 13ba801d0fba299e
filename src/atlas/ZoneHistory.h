// The civil time in force at a place on a date and clock time, from the
// system's IANA time-zone database (read through date/tz), in the terms the
// atlas window hands on to the input window: the standard zone in 900ths of
// an hour, West positive, and a kind-of-time code.
//
// Before a place kept standard time its clocks showed local mean time; that
// is taken from the place's own longitude, not from the city that names its
// zone. A clock time that a change of the clocks skipped (a gap) or showed
// twice (a repeated hour) has two readings; both are given, never a guess.
#pragma once

#include <string>
#include <string_view>

namespace kal {

struct LocalClock {
    int year = 0, month = 1, day = 1;     // Gregorian calendar
    int hour = 0, minute = 0, second = 0; // 24-hour clock
};

// Kind-of-time codes.
inline constexpr int kStandardTime = 0;
inline constexpr int kDaylightTime = 1;       // one hour of daylight time
inline constexpr int kDoubleDaylightTime = 3; // two hours
inline constexpr int kLocalMeanTime = 4;

struct ZoneReading {
    int zone900 = 0; // standard zone, 900ths of an hour, West positive
    int kindOfTime = kStandardTime;
    int offsetSeconds = 0;    // clock time minus universal time, daylight included
    int daylightSeconds = 0;  // the daylight part of it: 0, 3600 or 7200
    std::string abbreviation; // "EST", "BDST", "LMT"
};

enum class ClockFit {
    Unique,   // the clock time was shown once
    Gap,      // the clocks jumped over it
    Repeated, // the clocks showed it twice
};

struct ZoneInForce {
    ClockFit fit = ClockFit::Unique;
    ZoneReading first;  // the reading; at a change, the one before it
    ZoneReading second; // at a change, the one after it; else the same as first
    std::string error;  // when set, nothing else is
};

// The time in force in an IANA zone at a clock time, for a place at
// `longitudeEast` degrees. Daylight time of other than one or two hours
// (half-hour summer time, twenty-minute "half summer time") is counted into
// the standard zone with the standard kind, so that the zone the window
// derives is still the clock's offset.
ZoneInForce FindZoneInForce(std::string_view zone, double longitudeEast, const LocalClock& clock);

// Reads the system's zone database once; the reason when it cannot.
std::string PrepareZoneData();

// The version of the system's zone data ("2026f"), empty when unknown.
std::string TzdataVersion();

} // namespace kal
