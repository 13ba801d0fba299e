// kaltrova-cli-atlas.so: the atlas command of kaltrova-cli, which loads it
// on demand.
#include "cli/AtlasModule.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "atlas/AtlasLookup.h"
#include "base/VbText.h"
#include "shell/Session.h"

namespace kal {
namespace {

// "1944-08-01" and "10:00" into a clock; false when they are not such.
bool ParseClock(const std::string& date, const std::string& time, LocalClock& c) {
    char tail = 0;
    if (std::sscanf(date.c_str(), "%d-%d-%d%c", &c.year, &c.month, &c.day, &tail) != 3)
        return false;
    if (std::sscanf(time.c_str(), "%d:%d%c", &c.hour, &c.minute, &tail) != 2) return false;
    return true;
}

// "48N08": whole degrees, the direction, minutes rounded as Lookup rounds.
std::string AngleField(double arcSeconds, char positive, char negative) {
    DegreesMinutes dm = ToDegreesMinutes(arcSeconds);
    std::string minutes = std::to_string(dm.minutes);
    if (minutes.size() < 2) minutes.insert(0, "0");
    return std::to_string(dm.degrees) + (dm.negative ? negative : positive) + minutes;
}

// The atlas command: every place the search finds, one line for each reading
// of the clock at the given local time. Returns the exit status.
int RunAtlas(Session& s, const std::string& place, const std::string& date, const std::string& time,
             std::size_t limit) {
    LocalClock clock;
    if (place.empty() || !ParseClock(date, time, clock)) {
        std::cerr << "kaltrova-cli: atlas needs --place TEXT --date YYYY-MM-DD --time HH:MM\n";
        return 64;
    }
    const PlaceIndex* atlas = s.atlas.Index();
    if (!atlas) {
        std::cerr << "kaltrova-cli: " << s.atlas.Error() << "\n";
        return 66;
    }
    std::vector<PlaceMatch> found = atlas->search(place, limit);
    if (found.empty()) {
        std::cerr << "kaltrova-cli: no place of the atlas is called '" << place << "'\n";
        return 1;
    }
    std::cout << "place\tregion\tcountry\tlatitude\tlongitude\tzone\tkind\ttime\treading\t"
                 "input_zone\tiana_zone\tduplicate\n";
    for (const PlaceMatch& m : found) {
        AtlasPlace p = atlas->place(m.place);
        AtlasAnswer a = LookupPlace(*atlas, m.place, clock);
        if (!a.zone.error.empty()) {
            std::cerr << "kaltrova-cli: " << a.zone.error << "\n";
            return 64;
        }
        auto line = [&](const ZoneReading& r, const char* reading) {
            AtlasZoneValue z = AtlasZoneFromKind(r.zone900, r.kindOfTime);
            std::cout << p.name << '\t' << p.region << '\t' << p.country << '\t'
                      << AngleField(a.latitudeSeconds, 'N', 'S') << '\t'
                      << AngleField(a.longitudeSeconds, 'W', 'E') << '\t'
                      << NumText(static_cast<float>(r.zone900) / 900.0f, Precision::Single) << '\t'
                      << r.kindOfTime << '\t' << r.abbreviation << '\t' << reading << '\t'
                      << NumText(z.hours, Precision::Single) << '\t' << p.zone << '\t'
                      << a.duplicate << '\n';
        };
        if (a.zone.fit == ClockFit::Unique) {
            line(a.zone.first, "only");
        } else {
            line(a.zone.first, "before");
            line(a.zone.second, "after");
        }
    }
    return 0;
}

int Run(const char* appDir, const char* shippedDir, const char* place, const char* date,
        const char* time, int limit) {
    int status = 0;
    {
        Session s;
        s.Open(appDir, shippedDir);
        status = RunAtlas(s, place, date, time, static_cast<std::size_t>(limit));
        s.Close();
    }
    std::cout.flush();
    return status;
}

const AtlasCommand command{AtlasModuleVersion, Run};

} // namespace
} // namespace kal

extern "C" __attribute__((visibility("default"))) const void* KaltrovaAtlasCommand() {
    return &kal::command;
}
