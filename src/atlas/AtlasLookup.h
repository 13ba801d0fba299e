// What the atlas window reads for a picked place, and the conversions of its
// Lookup button: the place's latitude and longitude in seconds of arc, the
// zone in force on the birth date, the duplicate indicator; the texts
// `AtlasLong` and `AtlasLat`, the zone `AtlasZone`, and the birth hour on the
// 24-hour clock that the lookup is asked for.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "atlas/PlaceIndex.h"
#include "atlas/ZoneHistory.h"

namespace kal {

struct AtlasAnswer {
    double latitudeSeconds = 0;  // North positive
    double longitudeSeconds = 0; // West positive
    int duplicate = 0;           // 1000 or more when other places bear the name
    ZoneInForce zone;
};

// 0 for a name no other place of the atlas bears, else 1000 and the number
// of the others.
int DuplicateIndicator(int sameName);

AtlasAnswer LookupPlace(const PlaceIndex& atlas, std::uint32_t place, const LocalClock& clock);

// Whole degrees and minutes of an angle in seconds of arc; minutes rounded
// half to even, 60 of them carried into the degrees.
struct DegreesMinutes {
    int degrees = 0;
    int minutes = 0;
    bool negative = false;
};
DegreesMinutes ToDegreesMinutes(double arcSeconds);

// `AtlasLong`: degrees, "W" (or "E" when negative), minutes, each number
// written with a leading space when not negative: " 71W 4".
std::string AtlasLongText(double westSeconds);
// `AtlasLat`: the same with "N", or "S" when negative.
std::string AtlasLatText(double northSeconds);

// `AtlasZone` from the standard zone and the kind of time: one hour less
// for daylight time (codes 1 and 2), two for code 3; any other code is local
// mean time, for which the zone stays and the user is told.
struct AtlasZoneValue {
    float hours = 0;
    bool localMeanTime = false;
};
AtlasZoneValue AtlasZoneFromKind(int zone900, int kindOfTime);

inline constexpr std::string_view kLmtText = "LMT is used";
inline constexpr std::string_view kLmtCaption = "LMT used";

// The hour of the 12-hour clock with A.M. or P.M. on the 24-hour clock:
// 12 A.M. is 0, 12 P.M. is 12, 1 P.M. is 13.
int Hour24(int hour12, bool pm);

// The birth date and clock time a lookup is asked for, from the texts of the
// input window: month, day and year as numbers, the hour of the 12-hour
// clock with A.M. or P.M., the minute (a fraction of it gives seconds).
LocalClock BirthClock(std::string_view month, std::string_view day, std::string_view year,
                      std::string_view hour, std::string_view minute, bool pm);

// "standard time", "one hour of daylight time", "two hours of daylight
// time" or "local mean time" for a kind-of-time code.
std::string_view KindOfTimeText(int kindOfTime);

// What the atlas window hands to the input window.
struct AtlasResults {
    std::string AtlasLong; // " 71W 4"
    std::string AtlasLat;  // " 42N 21"
    float AtlasZone = 0;   // hours, West of Greenwich positive
    short AtlasFound = 0;  // 1 after a Lookup
    short AtlasResult = 0; // 6 once the atlas window has closed
};

} // namespace kal
