// The chart calculation: input checks, the chart identity from the input
// fields or the stepped record, local time and zone to universal time, the
// ephemeris and house calls, cusp re-indexing and house placement.
#pragma once

#include <array>
#include <filesystem>

#include "birthdata/InputFields.h"
#include "chart/Chart.h"
#include "shell/Message.h"

namespace kal {

// The check marks of the seven house-system menu items, in the order of
// HouseSystems (Placidus, Regiomontanus, Koch, Campanus, Porphyry,
// Alcabitus, Topocentric).
using HouseMenu = std::array<bool, 7>;

// The house-system letter the menu selects: the first checked item of
// Regiomontanus, Koch, Campanus, Porphyry, Alcabitus, Topocentric, else "P".
char HouseLetterFromMenu(const HouseMenu& menu);
// The menu with only the item of option 27's value checked (Placidus for
// values other than 2..7).
HouseMenu HouseMenuFromOption(float option27);

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
// Bodies, speeds, houses, ARMC, sidereal time, cusp table and retrograde
// marks for CalcDay .. GeoLat and HouseSystem.
void CalcEphemeris(Chart& c);
// PlanetHouse from PlanetLong and CuspTable.
void FindPlanetHouses(Chart& c);
// The sidereal-time text of an ARMC in degrees ("hh" "h " "mm" "m " "ss" "s").
std::string SiderealTimeText(double armc);
// hh.mm to decimal hours.
double HhmmToHours(double hhmm);

// Ephemeris set-up and shut-down.
void OpenEphemeris(const std::filesystem::path& ephemsDir);
void CloseEphemeris();

} // namespace kal
