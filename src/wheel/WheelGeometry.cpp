#include "wheel/WheelGeometry.h"

#include <cmath>

#include "base/VbText.h"

namespace kal {

double Norm360(double a) {
    double r = std::fmod(a, 360.0);
    if (r < 0) r += 360;
    // fmod of a tiny negative value gives 360 after the correction.
    return r >= 360 ? r - 360 : r;
}

WheelChart WheelChartOf(const Chart& c, const HeaderTable& lines, const HeaderTable& lines2) {
    WheelChart w;
    w.WheelLong = c.PlanetLong;
    for (size_t k = 1; k <= 12; ++k) w.WheelCusp[k] = c.CuspTable[k];
    w.SavedRetro = c.RetroFlags;
    for (int b = 1; b <= NumBodies; ++b) {
        size_t at = static_cast<size_t>(b - 1) * 10;
        w.House[static_cast<size_t>(b)] =
            at < c.PlanetHouse.size() ? static_cast<int>(Val(c.PlanetHouse.substr(at, 10))) : 0;
    }
    w.HeaderLines = lines;
    w.HeaderLines2 = lines2;
    return w;
}

short WindowScale(int width, int height) {
    if (width >= height && height > 0)
        return static_cast<short>(std::nearbyint(225.0 * width / height));
    return 244;
}

WheelView WindowView(int width, int height) {
    WheelView v;
    v.medium = Medium::Window;
    v.R = WindowScale(width, height);
    double ratio = width > 0 ? static_cast<double>(height) / width : 1;
    v.left = -v.R;
    v.right = v.R;
    v.top = v.R * ratio;
    v.bottom = -v.R * ratio;
    return v;
}

WheelView PrinterView(ChartStyle type) {
    WheelView v;
    v.medium = Medium::Printer;
    v.R = type == ChartStyle::European ? 272 : 265;
    v.left = -0.9475 * v.R;
    v.right = 0.9475 * v.R;
    v.top = 0.9475 * (v.R / 0.8 - 56);
    v.bottom = 0.9475 * (-v.R / 0.8 - 56);
    return v;
}

std::array<double, 13> HouseLineAngles(const WheelChart& w, ChartStyle type) {
    std::array<double, 13> a{};
    for (int h = 1; h <= 12; ++h) {
        double angle;
        if (type == ChartStyle::American) {
            angle = 180 + 30.0 * (h - 1);
        } else {
            double d = w.Cusp(h) - w.Cusp(1);
            if (d < 0) d += 360;
            angle = 180 + d;
        }
        if (angle >= 360) angle -= 360;
        a[static_cast<size_t>(h)] = angle;
    }
    return a;
}

std::array<double, 13> HouseWidths(const WheelChart& w) {
    std::array<double, 13> width{};
    for (size_t i = 1; i <= 12; ++i) {
        double next = w.WheelCusp[i == 12 ? 1 : i + 1];
        double arc = Norm360(next - w.WheelCusp[i]);
        width[i] = arc == 277.5 ? 7.5 : arc;
    }
    return width;
}

std::vector<InterceptedSign> InterceptedSigns(const WheelChart& w, ChartStyle type) {
    std::vector<InterceptedSign> found;
    auto sign = [&](int h) { return static_cast<int>(w.Cusp(h) / 30) + 1; };
    for (int h = 1; h <= 12; ++h) {
        int next = h == 12 ? 1 : h + 1;
        int diff = sign(next) - sign(h);
        if (diff < 0) diff += 12;
        if (diff != 2) continue;
        int s = sign(h) + 1;
        if (s > 12) s -= 12;
        double a;
        if (type == ChartStyle::American) {
            a = 15 + 30.0 * (h - 7);
        } else {
            double width = w.Cusp(next) - w.Cusp(h);
            if (width < -180) width += 360;
            a = (w.Cusp(h) - w.Cusp(7)) + width / 2;
        }
        found.push_back({h, s, Norm360(a)});
    }
    return found;
}

double EuropeanCuspAngle(const WheelChart& w, int k) {
    return Norm360(w.WheelCusp[static_cast<size_t>(k)] - w.WheelCusp[10]);
}

} // namespace kal
