#include "chart/Chart.h"

#include "base/VbText.h"

namespace kal {

int Chart::HouseNumberOf(int body) const {
    return static_cast<int>(
        Val(std::string_view(PlanetHouse).substr(static_cast<size_t>(body - 1) * 10, 2)));
}

void Chart::RestoreWorkingCopy() {
    PlanetLong = NatalLong;
    CuspTable = NatalCusp;
    RetroFlags = NatalRetro;
    SiderealTime = NatalSidereal;
}

} // namespace kal
