#include "chart/Calc.h"

#include <cmath>
#include <swephexp.h>

#include "base/VbText.h"
#include "chart/Tables.h"

namespace kal {

namespace {

const Message kInputError{"Error in natal input data section. Please correct.", "Warning!",
                          Icon::Information};
const Message kLatitudeError{"Your latitude is too high. Lower to 66 degrees, 00 minutes or "
                             "below OR change house systems.",
                             "Warning!", Icon::Information};

std::string JoinDate(const std::string& month, const std::string& day, const std::string& year,
                     int dateOrder) {
    switch (dateOrder) {
    case 1:
        return day + "/" + month + "/" + year;
    case 2:
        return year + "/" + month + "/" + day;
    default:
        return month + "/" + day + "/" + year;
    }
}

short ToShort(double v) {
    return static_cast<short>(std::lround(v));
}

} // namespace

namespace {

// The numbers of the input window's fields, each read once.
struct FieldNumbers {
    explicit FieldNumbers(const InputFields& in)
        : month(Val(in.txtMonth)), day(Val(in.txtDay)), year(Val(in.txtYear)),
          hour(Val(in.txtBirthHour)), minute(Val(in.txtBirthMinute)), tz(Val(in.txtTZ)),
          longDeg(Val(in.txtLongDeg)), longMin(Val(in.txtLongMin)), latDeg(Val(in.txtLatDeg)),
          latMin(Val(in.txtLatMin)) {}
    double month, day, year, hour, minute, tz, longDeg, longMin, latDeg, latMin;
};

Messages Checks(const InputFields& in, const FieldNumbers& v, char houseLetter) {
    Messages out;
    auto fail = [&](const Message& m) { out.push_back(m); };
    // Presence.
    if (v.month == 0 || v.day == 0 || v.year == 0) fail(kInputError);
    if (in.txtMonth.empty() || in.txtDay.empty() || in.txtYear.empty()) fail(kInputError);
    if (in.txtBirthHour.empty() || in.txtBirthMinute.empty() || in.txtTZ.empty()) fail(kInputError);
    if (in.txtLongDeg.empty() || in.txtLongMin.empty()) fail(kInputError);
    if (in.txtLatDeg.empty() || in.txtLatMin.empty()) fail(kInputError);
    if (v.tz < -2 && in.optWest()) fail(kInputError);
    // Latitude: the two house systems that fail in polar latitudes.
    if (houseLetter == 'P' || houseLetter == 'K') {
        if (v.latDeg + v.latMin / 100 > 66.0) fail(kLatitudeError);
    }
    // Ranges.
    if (v.month > 12 || v.day > 31 || v.year > 2099) fail(kInputError);
    if (v.hour > 12 || v.minute > 59) fail(kInputError);
    if (v.tz > 12 || v.tz < -13) fail(kInputError);
    if (v.longDeg > 180 || v.longMin > 59) fail(kInputError);
    // A latitude beyond the pole has no houses in any system.
    if (v.latMin > 59 || v.latDeg + v.latMin / 100 > 90) fail(kInputError);
    // Year 0 is refused as empty above; a year before it as a year of its own.
    if (v.year < 0) fail(YearBeforeOneMessage(Trim(in.txtYear)));
    return out;
}

void FillIdentity(Chart& c, const InputFields& in, const FieldNumbers& v, int dateOrder) {
    c.ChartDay = ToShort(v.day);
    c.ChartMonth = ToShort(v.month);
    c.ChartYear = ToShort(v.year);
    c.ChartDate = JoinDate(in.txtMonth, in.txtDay, in.txtYear, dateOrder);
    c.ChartTime = static_cast<float>(v.hour + v.minute / 100);
    c.ChartTZ = static_cast<float>(v.tz);
    c.ChartAMPM = in.optAM ? "A.M." : "P.M.";
    double lon = v.longDeg + v.longMin / 100;
    c.ChartLong = static_cast<float>(in.optEast ? -lon : lon);
    c.ChartEW = c.ChartLong < 0 ? "East" : "West";
    double lat = v.latDeg + v.latMin / 100;
    c.ChartLat = static_cast<float>(in.optSouth ? -lat : lat);
    c.ChartNS = c.ChartLat < 0 ? "South" : "North";
    c.ChartName = in.txtName;
}

void SetCalcInputs(Chart& c, const InputFields& in, const FieldNumbers& v) {
    c.CalcDay = c.ChartDay;
    c.CalcMonth = c.ChartMonth;
    c.CalcYear = c.ChartYear;
    double h = v.hour;
    if (in.optAM && std::floor(h) == 12) h -= 12;
    if (!in.optAM && std::floor(h) != 12) h += 12;
    c.CalcHour = static_cast<float>(h + c.ChartTZ);
    c.CalcMinute = static_cast<float>(v.minute);
    c.GeoLong = v.longDeg + v.longMin / 60;
    if (Upper(c.ChartEW) == "WEST") c.GeoLong = -c.GeoLong;
    c.GeoLat = v.latDeg + v.latMin / 60;
    if (Upper(c.ChartNS) == "SOUTH") c.GeoLat = -c.GeoLat;
}

} // namespace

Messages InputChecks(const InputFields& in, char houseLetter) {
    return Checks(in, FieldNumbers(in), houseLetter);
}

Message YearBeforeOneMessage(const std::string& year) {
    return {"The year " + year +
                " cannot be calculated: charts are cast for the years 1 to 2099 of the "
                "common era. Please correct the birth year.",
            "Warning!", Icon::Information};
}

void FillIdentityFromInput(Chart& c, const InputFields& in, int dateOrder) {
    FillIdentity(c, in, FieldNumbers(in), dateOrder);
}

void FillIdentityFromStepped(Chart& c, const SteppedRecord& r, const std::string& inputName,
                             int dateOrder) {
    c.ChartName = inputName + " - in update mode";
    c.ChartTime = r.UpdHour + r.UpdMinute / 100.0f;
    c.ChartDay = r.UpdDay;
    c.ChartMonth = r.UpdMonth;
    c.ChartYear = r.UpdYear;
    c.ChartAMPM = r.UpdPM == 1 ? "P.M." : "A.M.";
    c.ChartDate = JoinDate(std::to_string(r.UpdMonth), std::to_string(r.UpdDay),
                           std::to_string(r.UpdYear), dateOrder);
    c.ChartTZ = r.UpdTZ;
    float lon = static_cast<float>(r.UpdLongDeg + r.UpdLongMin / 100.0);
    c.ChartLong = r.UpdWest == 0 ? -lon : lon;
    c.ChartEW = c.ChartLong < 0 ? "East" : "West";
    float lat = static_cast<float>(r.UpdLatDeg + r.UpdLatMin / 100.0);
    c.ChartLat = r.UpdSouth == 1 ? -lat : lat;
    c.ChartNS = c.ChartLat < 0 ? "South" : "North";
}

double HhmmToHours(double t) {
    double w = std::floor(t);
    return w + (t - w) * 100 / 60;
}

void CalcJulDayLocal(Chart& c) {
    double t = c.ChartTime;
    if (std::floor(t) == 12) t -= 12;
    t = HhmmToHours(t);
    double f = (t + c.ChartTZ) / 24;
    if (c.ChartAMPM == "P.M.") f += 0.5;
    auto Int = [](double x) { return std::floor(x); };
    double Y = c.ChartYear, M = c.ChartMonth, D = c.ChartDay;
    double n = (Y + 4800) * 12 + M - 3;
    double q = Int((2 * (n - 12 * Int(n / 12)) + 7 + 365 * n) / 12);
    double jdn = q + D + Int(n / 48) - 32083 + Int(n / 4800) - Int(n / 1200) + 38;
    c.ChartJulDay = jdn + f - 0.5;
}

void SetCalcInputsFromInput(Chart& c, const InputFields& in) {
    SetCalcInputs(c, in, FieldNumbers(in));
}

void SetCalcInputsFromStepped(Chart& c, const SteppedRecord& r) {
    c.CalcDay = r.UpdDay;
    c.CalcMonth = r.UpdMonth;
    c.CalcYear = r.UpdYear;
    double h = r.UpdHour;
    if (r.UpdPM == 0 && std::floor(h) == 12) h -= 12;
    if (r.UpdPM != 0 && std::floor(h) != 12) h += 12;
    c.CalcHour = static_cast<float>(h + r.UpdTZ);
    c.CalcMinute = r.UpdMinute;
    double lon = r.UpdLongDeg + r.UpdLongMin / 60.0;
    c.GeoLong = Upper(c.ChartEW) == "EAST" ? lon : -lon;
    double lat = r.UpdLatDeg + r.UpdLatMin / 60.0;
    c.GeoLat = Upper(c.ChartNS) == "NORTH" ? lat : -lat;
}

std::string SiderealTimeText(double armc) {
    double v = armc / 15;
    std::string s = FormatNumber(std::floor(v), "00") + "h ";
    v = (v - std::floor(v)) * 60;
    s += FormatNumber(std::floor(v), "00") + "m ";
    v = std::floor((v - std::floor(v)) * 60);
    s += FormatNumber(v, "00") + "s";
    return s;
}

namespace {

// The library's error text without its trailing blanks, line breaks and stop.
std::string LibraryText(const char* serr) {
    std::string t = serr;
    while (!t.empty() && (t.back() == ' ' || t.back() == '\n' || t.back() == '.')) t.pop_back();
    for (char& ch : t)
        if (ch == '\n') ch = ' ';
    return t;
}

Message EphemerisError(const std::string& libraryText) {
    return {"The positions could not be calculated for this date (" + libraryText +
                "). The chart has not been changed.",
            "Error!", Icon::Critical};
}

} // namespace

EphemerisStatus CalcEphemeris(Chart& c) {
    EphemerisStatus status;
    c.UTHours = c.CalcMinute / 60.0 + c.CalcHour;
    c.JulDayUT = swe_julday(c.CalcYear, c.CalcMonth, c.CalcDay, c.UTHours, SE_GREG_CAL);
    double jdOut = 0;
    swe_date_conversion(c.CalcYear, c.CalcMonth, c.CalcDay, c.UTHours, 'g', &jdOut);
    double et = c.JulDayUT + swe_deltat(c.JulDayUT);

    for (int i = 0; i <= 10; ++i) {
        double xx[6] = {0, 0, 0, 0, 0, 0};
        char serr[256] = "";
        const int got = swe_calc(et, i, SEFLG_SWIEPH | SEFLG_SPEED, xx, serr);
        // An error (a damaged file, a date beyond every model) leaves zeros:
        // no position at all.
        if (got < 0) {
            if (!status.error) status.error = EphemerisError(LibraryText(serr));
            continue;
        }
        // The flags tell which ephemeris answered: without a file for the
        // date the library falls back to its analytical model.
        if ((got & SEFLG_MOSEPH) != 0) status.analytical = true;
        int k = i == 0 ? Sun : i == 1 ? Moon : i == 10 ? NNode : i;
        c.PlanetLong[static_cast<size_t>(k)] = xx[0];
        c.PlanetSpeed[static_cast<size_t>(k)] = xx[3];
    }

    double cusps[13] = {}, ascmc[10] = {};
    // At a latitude its system cannot serve (which only a time step reaches:
    // the input checks refuse it) the library gives Porphyry's cusps.
    swe_houses(c.JulDayUT, c.GeoLat, c.GeoLong, c.HouseSystem, cusps, ascmc);
    c.ARMC = ascmc[2];
    c.SiderealTime = SiderealTimeText(c.ARMC);

    for (int h = 1; h <= 12; ++h) c.HouseCusp[static_cast<size_t>(h)] = cusps[h];
    for (int h = 1; h <= 9; ++h)
        c.CuspTable[static_cast<size_t>(h + 3)] = c.HouseCusp[static_cast<size_t>(h)];
    for (int h = 10; h <= 12; ++h)
        c.CuspTable[static_cast<size_t>(h - 9)] = c.HouseCusp[static_cast<size_t>(h)];

    c.PlanetLong[Asc] = c.CuspTable[4];
    c.PlanetLong[MC] = c.CuspTable[1];
    c.PlanetSpeed[Asc] = 0;
    c.PlanetSpeed[MC] = 0;

    c.RetroFlags.assign(NumBodies, ' ');
    for (int j = 1; j <= NumBodies - 2; ++j)
        if (c.PlanetSpeed[static_cast<size_t>(j)] < 0)
            c.RetroFlags[static_cast<size_t>(j - 1)] = 'R';
    return status;
}

void FindPlanetHouses(Chart& c) {
    if (c.PlanetHouse.size() < 130) c.PlanetHouse.resize(130, ' ');
    for (int j = 1; j <= NumBodies; ++j)
        c.PlanetHouse.replace(static_cast<size_t>(10 * j - 6), 6, " HOUSE");
    for (int h = 1; h <= 12; ++h) {
        int next = h == 12 ? 1 : h + 1;
        double from = c.CuspTable[static_cast<size_t>(h)];
        double to = c.CuspTable[static_cast<size_t>(next)];
        for (int j = 1; j <= NumBodies; ++j) {
            double p = c.PlanetLong[static_cast<size_t>(j)] + 1.0 / 36000.0;
            bool in =
                from <= to ? (from <= p && p < to) : ((from <= p && p < 360) || (0 <= p && p < to));
            if (in) c.PlanetHouse.replace(static_cast<size_t>(10 * j - 10), 4, HouseLabel(h));
        }
    }
}

namespace {

// Ephemeris, houses and the natal copy, once the identity and the moment
// are set. Worked on a copy: a chart the library could not calculate is not
// taken.
CastResult CastFromCalcInputs(Chart& c, Chart next) {
    EphemerisStatus status = CalcEphemeris(next);
    if (status.error) return {{*status.error}, status.analytical};
    next.NatalSidereal = next.SiderealTime;
    next.NatalCusp = next.CuspTable;
    FindPlanetHouses(next);
    next.NatalLong = next.PlanetLong;
    next.NatalSpeed = next.PlanetSpeed;
    next.NatalRetro = next.RetroFlags;
    next.SunMoonMid = Midpoint(next.NatalLong[Moon], next.NatalLong[Sun]);
    next.JupPlutoMid = Midpoint(next.NatalLong[Pluto], next.NatalLong[Jupiter]);
    c = std::move(next);
    return {{}, status.analytical};
}

} // namespace

CastResult CastChart(Chart& c, const InputFields& in, char houseSystem, int dateOrder) {
    c.HouseSystem = houseSystem;
    const FieldNumbers numbers(in);
    Messages checks = Checks(in, numbers, houseSystem);
    if (!checks.empty()) return {checks, false};
    Chart next = c;
    FillIdentity(next, in, numbers, dateOrder);
    CalcJulDayLocal(next);
    SetCalcInputs(next, in, numbers);
    return CastFromCalcInputs(c, std::move(next));
}

CastResult CastChart(Chart& c, const SteppedRecord& r, const std::string& inputName,
                     char houseSystem, int dateOrder) {
    c.HouseSystem = houseSystem;
    Chart next = c;
    FillIdentityFromStepped(next, r, inputName, dateOrder);
    CalcJulDayLocal(next);
    SetCalcInputsFromStepped(next, r);
    return CastFromCalcInputs(c, std::move(next));
}

void OpenEphemeris(const std::filesystem::path& ephemsDir) {
    std::string p = ephemsDir.string();
    swe_set_ephe_path(p.data());
}

void CloseEphemeris() {
    swe_close();
}

} // namespace kal
