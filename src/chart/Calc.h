// The chart calculation: input checks, the chart identity from the input
// fields or the stepped record, local time and zone to universal time, the
// ephemeris and house calls, cusp re-indexing and house placement.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include "base/Message.h"
#include "chart/Chart.h"
#include "chart/InputFields.h"

namespace kal {

// The three input checks (presence, latitude, ranges), in order. Every
// failing test gives one message; an empty result means the input passes.
Messages InputChecks(const InputFields& in, char houseLetter);

// Chart identity from the input fields / from the stepped record.
void FillIdentityFromInput(Chart& c, const InputFields& in, int dateOrder);
void FillIdentityFromStepped(Chart& c, const SteppedRecord& r, const std::string& inputName,
                             int dateOrder);
// The program's own Julian day of the entered moment (ChartJulDay).
void CalcJulDayLocal(Chart& c);
// CalcDay .. GeoLat from the input fields / from the stepped record.
void SetCalcInputsFromInput(Chart& c, const InputFields& in);
void SetCalcInputsFromStepped(Chart& c, const SteppedRecord& r);
// What the library answered for one calculation.
struct EphemerisStatus {
    // The library could not calculate (a damaged ephemeris file, a date out
    // of its reach): nothing of this calculation may be used.
    std::optional<Message> error;
    // Some position came from the library's analytical model, because no
    // ephemeris file covers the date (or the files are missing).
    bool analytical = false;
};
// Bodies, speeds, houses, ARMC, sidereal time, cusp table and retrograde
// marks for CalcDay .. GeoLat and HouseSystem.
EphemerisStatus CalcEphemeris(Chart& c);
// PlanetHouse from PlanetLong and CuspTable.
void FindPlanetHouses(Chart& c);
// The sidereal-time text of an ARMC in degrees ("hh" "h " "mm" "m " "ss" "s").
std::string SiderealTimeText(double armc);
// hh.mm to decimal hours.
double HhmmToHours(double hhmm);

// What a calculation gave: the messages of the input checks that failed or
// of the library's error (the chart is then as it was), and whether the
// analytical model stood in for a missing ephemeris file.
struct CastResult {
    Messages messages;
    bool analytical = false;

    bool cast() const { return messages.empty(); }
};

// The whole calculation: the chart identity, the Julian day, the ephemeris
// and houses in `houseSystem`, the house placement, then the natal copy
// taken from the result with the two chart midpoints. From the input fields
// the input checks run first. When a check fails or the library cannot
// calculate, the messages are returned and the chart keeps its positions
// (only its house system is the new one).
CastResult CastChart(Chart& c, const InputFields& in, char houseSystem, int dateOrder);
// The same from the stepped record of the wheel's time steps (no input
// checks); the name is the input window's with " - in update mode".
CastResult CastChart(Chart& c, const SteppedRecord& r, const std::string& inputName,
                     char houseSystem, int dateOrder);

// The message for a year before 1 (the calculation knows no year 0 and no
// years before the common era).
Message YearBeforeOneMessage(const std::string& year);

// Ephemeris set-up and shut-down.
void OpenEphemeris(const std::filesystem::path& ephemsDir);
void CloseEphemeris();

} // namespace kal
