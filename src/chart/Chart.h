// The one current chart: positions, cusps, houses, the moment and place of
// the calculation and the identity the headers print. Every array is indexed
// from 1 as documented (element 0 unused). The working copy (PlanetLong,
// CuspTable, PlanetSpeed, RetroFlags, SiderealTime) is what the wheel steps;
// the natal copy (NatalLong, NatalCusp, ...) is what listings read.
#pragma once

#include <array>
#include <string>

#include "chart/Tables.h"

namespace kal {

using BodyArray = std::array<double, NumBodies + 1>;
using CuspArray = std::array<double, 14>;

struct Chart {
    // Positions.
    BodyArray PlanetLong{};
    BodyArray NatalLong{};
    BodyArray PlanetSpeed{};
    BodyArray NatalSpeed{};
    CuspArray HouseCusp{};
    CuspArray CuspTable{};
    CuspArray NatalCusp{};
    std::string RetroFlags = std::string(NumBodies, ' ');
    std::string NatalRetro = std::string(NumBodies, ' ');
    std::string PlanetHouse = "---- --------- -----" + std::string(110, ' ');
    double ARMC = 0;
    std::string SiderealTime;
    std::string NatalSidereal;
    double SunMoonMid = 0;
    double JupPlutoMid = 0;
    char HouseSystem = 'P'; // the letter of the house system

    // The moment and place used for the calculation.
    short CalcDay = 0, CalcMonth = 0, CalcYear = 0;
    float CalcHour = 0, CalcMinute = 0;
    double UTHours = 0;
    double JulDayUT = 0;
    double ChartJulDay = 0;
    double GeoLong = 0, GeoLat = 0;

    // Identity, as the headers print it.
    std::string ChartName;
    short ChartDay = 0, ChartMonth = 0, ChartYear = 0;
    std::string ChartDate;
    float ChartTime = 0;
    std::string ChartAMPM = "A.M.";
    float ChartTZ = 0;
    float ChartLong = 0;
    std::string ChartEW = "West";
    float ChartLat = 0;
    std::string ChartNS = "North";

    // The house label (4 characters) of body j, as PlanetHouse holds it.
    std::string HouseLabelOf(int body) const {
        return PlanetHouse.substr(static_cast<size_t>(body - 1) * 10, 4);
    }
    // The house number 1..12 of body j read from its label (0 before any
    // calculation).
    int HouseNumberOf(int body) const;

    // Brings the working copy (positions, cusps, retrograde marks, sidereal
    // time) back to the natal chart.
    void RestoreWorkingCopy();
};

// The stepped record the wheel's time steps calculate from.
struct SteppedRecord {
    short UpdMonth = 0, UpdDay = 0, UpdYear = 0;
    float UpdHour = 0, UpdMinute = 0;
    short UpdPM = 0;
    float UpdTZ = 0;
    short UpdLongDeg = 0, UpdLongMin = 0, UpdLatDeg = 0, UpdLatMin = 0;
    short UpdWest = 0, UpdSouth = 0;
};

} // namespace kal
