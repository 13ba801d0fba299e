#include "atlas/AtlasLookup.h"

#include <algorithm>
#include <cmath>

#include "base/VbText.h"

namespace kal {

namespace {

// A whole number as the program writes numbers: a leading space when not
// negative.
std::string NumberText(int v) {
    std::string text = v < 0 ? "" : " ";
    return text += std::to_string(v);
}

std::string AngleText(double arcSeconds, char positive, char negative) {
    DegreesMinutes dm = ToDegreesMinutes(arcSeconds);
    return NumberText(dm.degrees) + (dm.negative ? negative : positive) + NumberText(dm.minutes);
}

} // namespace

int DuplicateIndicator(int sameName) {
    return sameName > 1 ? std::min(1000 + sameName - 1, 32767) : 0;
}

AtlasAnswer LookupPlace(const PlaceIndex& atlas, std::uint32_t place, const LocalClock& clock) {
    AtlasPlace p = atlas.place(place);
    AtlasAnswer a;
    a.latitudeSeconds = p.latitude * 3600;
    a.longitudeSeconds = -p.longitude * 3600;
    a.duplicate = DuplicateIndicator(p.sameName);
    a.zone = FindZoneInForce(p.zone, p.longitude, clock);
    return a;
}

DegreesMinutes ToDegreesMinutes(double arcSeconds) {
    DegreesMinutes dm;
    dm.negative = arcSeconds < 0;
    double a = std::fabs(arcSeconds);
    double degrees = std::floor(a / 3600);
    // From the seconds left, not from the fraction of a degree, so that a
    // whole number of seconds gives exact halves of a minute.
    double minutes = std::nearbyint((a - degrees * 3600) / 60);
    if (minutes >= 60) {
        minutes -= 60;
        degrees += 1;
    }
    dm.degrees = static_cast<int>(degrees);
    dm.minutes = static_cast<int>(minutes);
    return dm;
}

std::string AtlasLongText(double westSeconds) {
    return AngleText(westSeconds, 'W', 'E');
}

std::string AtlasLatText(double northSeconds) {
    return AngleText(northSeconds, 'N', 'S');
}

AtlasZoneValue AtlasZoneFromKind(int zone900, int kindOfTime) {
    float z = static_cast<float>(zone900) / 900.0f;
    switch (kindOfTime) {
    case 0:
        return {z, false};
    case 1:
    case 2:
        return {z - 1, false};
    case 3:
        return {z - 2, false};
    default:
        return {z, true};
    }
}

int Hour24(int hour12, bool pm) {
    if (!pm) return hour12 == 12 ? 0 : hour12;
    return hour12 == 12 ? hour12 : hour12 + 12;
}

LocalClock BirthClock(std::string_view month, std::string_view day, std::string_view year,
                      std::string_view hour, std::string_view minute, bool pm) {
    LocalClock c;
    c.month = static_cast<int>(Val(month));
    c.day = static_cast<int>(Val(day));
    c.year = static_cast<int>(Val(year));
    c.hour = Hour24(static_cast<int>(Val(hour)), pm);
    double m = Val(minute);
    c.minute = static_cast<int>(std::floor(m));
    c.second = static_cast<int>(std::nearbyint((m - c.minute) * 60));
    if (c.second == 60) c.second = 59;
    return c;
}

std::string_view KindOfTimeText(int kindOfTime) {
    switch (kindOfTime) {
    case kStandardTime:
        return "standard time";
    case 1:
    case 2:
        return "one hour of daylight time";
    case kDoubleDaylightTime:
        return "two hours of daylight time";
    default:
        return "local mean time";
    }
}

} // namespace kal
