// The natal input window's rules as plain functions: the "Now" filling from
// a clock reading and the home place of the options, the birth-hour check,
// the key filters and the zone sign that follows East/West.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "base/Message.h"
#include "base/Options.h"
#include "chart/InputFields.h"

namespace kal {

// Date and time fields from `now`: month, day, year, the hour as the clock
// format gives it (1..12 on a 12-hour clock, 0..23 on a 24-hour one, then
// brought back to the 12-hour clock by the birth-hour check) and the minute;
// A.M. or P.M. from the hour. `timeFormat` 1 is the 24-hour clock.
void FillNowDateTime(InputFields& in, const std::tm& now, int timeFormat);
// The home place: zone option 18, longitude 19/20 with direction 21 (0 West),
// latitude 22/23 with direction 24 (0 North).
void FillHomePlace(InputFields& in, const Options& o);
// "Now": the name, the date and time from `now` and the home place.
void FillNow(InputFields& in, const std::tm& now, int timeFormat, const Options& o);

Message BirthHourEmptyMessage();
Message TypingTooFastMessage();

// One round of the check run on every change of the birth-hour field.
struct BirthHourCheck {
    std::optional<std::string> newText; // the field is rewritten to this
    bool setPM = false;
    std::optional<Message> message;
};
BirthHourCheck CheckBirthHour(std::string_view text);
// The hour after the check has run until nothing changes; `pm` set when the
// check chose P.M.
std::string SettleBirthHour(std::string_view text, bool& pm);

// Whether a typed character is accepted by a field of the input window
// (Backspace is '\b').
bool InputKeyAccepted(std::string_view field, char c);

// The zone text after choosing East (negative) or West (positive).
std::string ZoneForDirection(std::string_view tz, bool east);

// The place an atlas lookup found, into the fields: the zone, longitude
// degrees and minutes around the "W" or "E" of `atlasLong` with that
// direction, latitude likewise around "N" or "S". Nothing is filled when
// the longitude has no direction letter or is beyond 180 degrees. The
// zone is taken as it is: choosing the direction here does not turn its
// sign as a click on East or West does.
bool ApplyAtlasPlace(InputFields& in, std::string_view atlasLong, std::string_view atlasLat,
                     float atlasZone);

// The text fields along which Down moves forward and Up moves back.
inline constexpr std::string_view kArrowChain[] = {"txtBirthHour", "txtBirthMinute", "txtTZ",
                                                   "txtLongDeg",   "txtLongMin",     "txtLatDeg",
                                                   "txtLatMin",    "txtEmail"};

} // namespace kal
