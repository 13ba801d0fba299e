#include "chart/Tables.h"

#include <cmath>

namespace kal {

int SignOf(double longitude) {
    return static_cast<int>(std::floor(longitude / 30.0)) + 1;
}

std::string_view SignAbbrOf(int sign) {
    if (sign < 1 || sign > 12) return "???";
    return SignAbbr.substr(static_cast<size_t>(sign - 1) * 3, 3);
}

std::string_view PlanetNamesField(int body) {
    return PlanetNames.substr(static_cast<size_t>(body - 1) * 10, 10);
}

std::string_view HouseLabel(int k) {
    return HouseLabels.substr(static_cast<size_t>(k - 1) * 4, 4);
}

std::string_view AspectName(int code) {
    if (code < 1 || code > 16) return "            ";
    return AspectNames.substr(static_cast<size_t>(code - 1) * 12, 12);
}

char HouseLetterOfOption(float option27) {
    int v = static_cast<int>(option27);
    if (static_cast<float>(v) == option27 && v >= 2 && v <= 7)
        return HouseSystems[static_cast<size_t>(v - 1)].letter;
    return 'P';
}

std::string HouseSystemName(char letter) {
    for (const auto& h : HouseSystems)
        if (h.letter == letter) return h.name;
    return "Placidus";
}

double Midpoint(double a, double b) {
    double m = (a + b) / 2;
    float da = static_cast<float>(std::fabs(m - a));
    float db = static_cast<float>(std::fabs(m - b));
    if (!(da <= 90.0f && db <= 90.0f)) m += 180;
    if (m >= 360) m -= 360;
    return m;
}

} // namespace kal
