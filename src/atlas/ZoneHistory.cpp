#include "atlas/ZoneHistory.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <optional>

#include <date/tz.h>

namespace kal {

namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

// The zone database names local mean time "LMT"; "-00" marks the years
// before a place was settled, when its clocks (if any) kept mean time too.
bool IsMeanTime(const date::sys_info& i) {
    return i.abbrev == "LMT" || i.abbrev == "-00";
}

// date/tz reading the system's compiled files knows only whether a period is
// daylight time (save is then one minute), not by how much.
bool IsDaylight(const date::sys_info& i) {
    return i.save != minutes{0};
}

// The standard offset under a daylight period: that of the nearest
// standard period before it, else after it, when the difference is one or
// two hours. London's double summer time of 1941 followed a year and more
// of plain summer time; the standard period before both gives two hours.
std::optional<seconds> StandardUnder(const date::time_zone& z, const date::sys_info& daylight) {
    const auto earliest = date::sys_days{date::year{1000} / 1 / 1};
    const auto latest = date::sys_days{date::year{3000} / 1 / 1};
    for (bool back : {true, false}) {
        date::sys_info i = daylight;
        for (int step = 0; step < 16; ++step) {
            if (back ? i.begin <= earliest : i.end >= latest) break;
            i = back ? z.get_info(i.begin - seconds{1}) : z.get_info(i.end);
            if (IsDaylight(i)) continue;
            seconds save = daylight.offset - i.offset;
            if (!IsMeanTime(i) && (save == hours{1} || save == hours{2})) return i.offset;
            break;
        }
    }
    return std::nullopt;
}

ZoneReading Reading(const date::time_zone& z, const date::sys_info& i, double longitudeEast) {
    ZoneReading r;
    if (IsMeanTime(i)) {
        // One hour for every 15 degrees: 240 seconds of time a degree.
        r.kindOfTime = kLocalMeanTime;
        r.offsetSeconds = static_cast<int>(std::nearbyint(longitudeEast * 240));
        r.zone900 = static_cast<int>(std::nearbyint(-longitudeEast * 60));
        r.abbreviation = "LMT";
        return r;
    }
    seconds standard = i.offset;
    if (IsDaylight(i)) {
        if (auto s = StandardUnder(z, i)) standard = *s;
    }
    r.offsetSeconds = static_cast<int>(i.offset.count());
    r.daylightSeconds = static_cast<int>((i.offset - standard).count());
    r.kindOfTime = r.daylightSeconds == 0      ? kStandardTime
                   : r.daylightSeconds == 3600 ? kDaylightTime
                                               : kDoubleDaylightTime;
    // 900ths of an hour are 4 seconds.
    r.zone900 = static_cast<int>(std::nearbyint(-standard.count() / 4.0));
    r.abbreviation = i.abbrev;
    return r;
}

} // namespace

ZoneInForce FindZoneInForce(std::string_view zone, double longitudeEast, const LocalClock& c) {
    ZoneInForce result;
    date::year_month_day day{date::year{c.year}, date::month(static_cast<unsigned>(c.month)),
                             date::day(static_cast<unsigned>(c.day))};
    if (c.month < 1 || c.month > 12 || c.day < 1 || !day.ok() || c.hour < 0 || c.hour > 23 ||
        c.minute < 0 || c.minute > 59 || c.second < 0 || c.second > 59) {
        result.error = "The birth date or time is not valid.";
        return result;
    }
    std::string error = PrepareZoneData();
    if (!error.empty()) {
        result.error = error;
        return result;
    }
    const date::time_zone* z = nullptr;
    try {
        z = date::locate_zone(std::string(zone));
    } catch (const std::exception&) {
        result.error = "The time zone " + std::string(zone) + " is not in the system's zone data.";
        return result;
    }
    auto local = date::local_days{day} + hours{c.hour} + minutes{c.minute} + seconds{c.second};
    date::local_info li = z->get_info(local);
    result.first = Reading(*z, li.first, longitudeEast);
    if (li.result == date::local_info::unique) {
        result.second = result.first;
    } else {
        result.fit =
            li.result == date::local_info::nonexistent ? ClockFit::Gap : ClockFit::Repeated;
        result.second = Reading(*z, li.second, longitudeEast);
    }
    return result;
}

std::string PrepareZoneData() {
    try {
        date::get_tzdb();
        return {};
    } catch (const std::exception& e) {
        return std::string("The system's time-zone data cannot be read: ") + e.what();
    }
}

std::string TzdataVersion() {
    // The text form of the data that Debian and most distributions install
    // beside the compiled zones begins "# version 2026f".
    std::ifstream in("/usr/share/zoneinfo/tzdata.zi");
    std::string line;
    if (!std::getline(in, line)) return {};
    const std::string prefix = "# version ";
    return line.starts_with(prefix) ? line.substr(prefix.size()) : std::string{};
}

} // namespace kal
