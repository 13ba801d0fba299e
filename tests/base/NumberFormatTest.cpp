// The number formatter against the one it replaced, which went through the
// C library's "%.*e": the same text for every value and every pattern the
// listings and data files print, on a few hundred thousand values.
#include <gtest/gtest.h>

#include <cctype>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "base/VbText.h"

using namespace kal;

// The formatter as it was, kept as the reference.
namespace reference {
namespace {

// Decimal digits of |v| rounded to `sig` significant digits, as a digit
// string and the power of ten of its first digit.
struct Decimal {
    std::string digits; // no leading zeros unless the value is 0
    int exp10 = 0;      // value = 0.d1d2d3... * 10^(exp10)
};

Decimal ToDecimal(double v, int sig) {
    Decimal d;
    v = std::fabs(v);
    if (v == 0.0 || !std::isfinite(v)) {
        d.digits = "0";
        d.exp10 = 1;
        return d;
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*e", sig - 1, v);
    // buf: d.ddddde[+-]XX
    std::string s(buf);
    size_t e = s.find('e');
    std::string mant = s.substr(0, e);
    int ex = std::atoi(s.c_str() + e + 1);
    for (char c : mant)
        if (std::isdigit(static_cast<unsigned char>(c))) d.digits += c;
    d.exp10 = ex + 1;
    while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
    return d;
}

// Integer-part digits and exactly `frac` fraction digits of the decimal value,
// rounded half away from zero.
void RoundDecimal(const Decimal& d, int frac, std::string& intPart, std::string& fracPart) {
    // Lay out all digits with the point after position exp10.
    std::string all;
    int pointPos; // number of digits before the point in `all`
    if (d.exp10 <= 0) {
        all = std::string(static_cast<size_t>(-d.exp10), '0') + d.digits;
        pointPos = 0;
    } else {
        all = d.digits;
        if (static_cast<int>(all.size()) < d.exp10)
            all += std::string(static_cast<size_t>(d.exp10) - all.size(), '0');
        pointPos = d.exp10;
    }
    int keep = pointPos + frac;
    if (static_cast<int>(all.size()) < keep) all += std::string(keep - all.size(), '0');
    bool roundUp = static_cast<int>(all.size()) > keep && all[keep] >= '5';
    std::string kept = all.substr(0, keep);
    if (roundUp) {
        int i = keep - 1;
        while (i >= 0 && kept[i] == '9') kept[i--] = '0';
        if (i >= 0)
            kept[i]++;
        else {
            kept.insert(kept.begin(), '1');
            pointPos++;
        }
    }
    intPart = kept.substr(0, pointPos);
    fracPart = kept.substr(pointPos);
    size_t nz = intPart.find_first_not_of('0');
    intPart = nz == std::string::npos ? "" : intPart.substr(nz);
}

} // namespace

std::string Format(double v, std::string_view pattern, Precision p) {
    size_t dot = pattern.find('.');
    std::string_view ip = pattern.substr(0, dot);
    std::string_view fp =
        dot == std::string_view::npos ? std::string_view{} : pattern.substr(dot + 1);
    size_t firstZero = ip.find('0');
    int minInt = firstZero == std::string_view::npos ? 0 : static_cast<int>(ip.size() - firstZero);
    int frac = static_cast<int>(fp.size());
    size_t lastZero = fp.rfind('0');
    int minFrac = lastZero == std::string_view::npos ? 0 : static_cast<int>(lastZero + 1);

    std::string intPart, fracPart;
    RoundDecimal(ToDecimal(v, static_cast<int>(p)), frac, intPart, fracPart);
    while (static_cast<int>(fracPart.size()) > minFrac && fracPart.back() == '0')
        fracPart.pop_back();
    if (static_cast<int>(intPart.size()) < minInt)
        intPart.insert(0, static_cast<size_t>(minInt) - intPart.size(), '0');

    bool nonzero = intPart.find_first_not_of('0') != std::string::npos ||
                   fracPart.find_first_not_of('0') != std::string::npos;
    std::string out;
    if (v < 0 && nonzero) out += '-';
    out += intPart;
    if (dot != std::string_view::npos && (!fracPart.empty() || frac == 0)) {
        if (!fracPart.empty()) out += '.' + fracPart;
    }
    return out;
}

namespace {
std::string GeneralText(double v, Precision p, bool leadingZero) {
    Decimal d = ToDecimal(v, static_cast<int>(p));
    if (d.digits == "0") return "0";
    std::string s;
    int n = static_cast<int>(d.digits.size());
    if (d.exp10 > static_cast<int>(p) || d.exp10 < -static_cast<int>(p) + 1) {
        // Far outside the ordinary range: scientific form.
        s = d.digits.substr(0, 1);
        if (n > 1) s += "." + d.digits.substr(1);
        char e[16];
        std::snprintf(e, sizeof e, "E%+03d", d.exp10 - 1);
        s += e;
    } else if (d.exp10 <= 0) {
        s = (leadingZero ? "0." : ".") + std::string(static_cast<size_t>(-d.exp10), '0') + d.digits;
    } else if (d.exp10 >= n) {
        s = d.digits + std::string(static_cast<size_t>(d.exp10 - n), '0');
    } else {
        s = d.digits.substr(0, d.exp10) + "." + d.digits.substr(d.exp10);
    }
    return v < 0 ? "-" + s : s;
}
} // namespace

std::string NumText(double v, Precision p) {
    return GeneralText(v, p, true);
}
std::string StrText(double v, Precision p) {
    std::string s = GeneralText(v, p, false);
    return v < 0 ? s : " " + s;
}
} // namespace reference

namespace {

// The patterns of the listings, the chart header, the names and cities
// files, and a few more of the same grammar.
const char* const kPatterns[] = {"0",      "00",      "000",     "#0",     "##0",   "#",
                                 "##0.0",  "#0.00",   "##0.00",  "0.00",   "#0.0",  "#00#.#0",
                                 "#0#.#0", "##.#0",   "0.000",   "#.##",   "0.0",   "#0.000",
                                 "##0.00", "#####.#", "0.00000", "000.00", "#.#0#", "00.#"};

// Values of every kind: what the listings compute (whole degrees, minutes
// and seconds of arc, sidereal time, zones, coordinates), halves and
// decimal ties, values a few units in the last place from a half or a
// power of ten, zero, negatives, huge and tiny values, and any bit pattern.
class Values {
  public:
    explicit Values(std::uint64_t seed) : rng_(seed) {}

    double Next() {
        switch (kind_++ % 12) {
        case 0: // a longitude's whole degrees, minutes and seconds
        {
            double L = Uniform(0, 360);
            switch (Int(0, 3)) {
            case 0:
                return std::floor(L);
            case 1:
                return (L - std::floor(L)) * 60;
            case 2: {
                double m = (L - std::floor(L)) * 60;
                return std::floor((m - std::floor(m)) * 60);
            }
            default:
                return (m_ = (L / 15 - std::floor(L / 15)) * 60);
            }
        }
        case 1: // separations and their deviations
        {
            double sep = Uniform(0, 180);
            return Int(0, 1) ? sep : std::fabs(sep - 60 * Int(0, 3));
        }
        case 2: // halves, quarters and eighths, both signs
            return Int(-4000, 4000) / static_cast<double>(1 << Int(1, 3));
        case 3: // decimal ties: k + 5 * 10^-(n+1) as the nearest double
        {
            int n = Int(0, 6);
            double k = Int(-99999, 99999) / std::pow(10.0, n);
            return k + 5 / std::pow(10.0, n + 1);
        }
        case 4: // a few units in the last place from a half or a whole number
        {
            double base = Int(-500, 500) + (Int(0, 1) ? 0.5 : 0.0);
            double v = base;
            int steps = Int(-4, 4);
            for (int s = 0; s < std::abs(steps); ++s)
                v = std::nextafter(v, steps < 0 ? -INFINITY : INFINITY);
            return v;
        }
        case 5: // near powers of ten, and nines that carry
        {
            double p = std::pow(10.0, Int(-6, 16));
            switch (Int(0, 2)) {
            case 0:
                return std::nextafter(p, Int(0, 1) ? 0.0 : INFINITY);
            case 1:
                return p - p * 1e-15 * Int(1, 9);
            default:
                return p * (1 - 0.0004 * Int(0, 2));
            }
        }
        case 6: // zones, clock times and coordinates as single-precision values
            return static_cast<double>(static_cast<float>(Uniform(-180, 180)));
        case 7: // whole numbers of every size
            return static_cast<double>(static_cast<std::int64_t>(rng_() >> Int(1, 63))) *
                   (Int(0, 1) ? 1 : -1);
        case 8: // plain values of the usual range
            return Uniform(-1000, 1000);
        case 9: // small magnitudes
            return Uniform(-1, 1) * std::pow(10.0, Int(-20, 0));
        case 10: // huge magnitudes
            return Uniform(-10, 10) * std::pow(10.0, Int(5, 300));
        default: // any bit pattern: denormals, infinities and NaNs among them
        {
            std::uint64_t bits = rng_();
            double v;
            std::memcpy(&v, &bits, sizeof v);
            return v;
        }
        }
    }

  private:
    double Uniform(double lo, double hi) {
        return std::uniform_real_distribution<double>(lo, hi)(rng_);
    }
    int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }

    std::mt19937_64 rng_;
    unsigned kind_ = 0;
    double m_ = 0;
};

std::string Show(double v) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.17g", v);
    return buf;
}

// Collects the first differences and counts them all.
struct Differences {
    int count = 0;
    std::ostringstream first;
    void Check(const std::string& got, const std::string& want, const std::string& what) {
        if (got == want) return;
        if (++count <= 20) first << what << ": \"" << got << "\" instead of \"" << want << "\"\n";
    }
};

} // namespace

TEST(NumberFormat, SameTextAsTheCLibraryFormatter) {
    // Values that once took the careful path or sit exactly on its edges.
    std::vector<double> edges;
    const char* edgeText =
        "0 -0 0.5 -0.5 1.5 2.5 2.675 1.005 0.125 99.96 -0.001 2.4999999999999996 "
        "0.49999999999999994 59.999999999999993 59.5 9.999999 999999.5 9999999.5 2147483647.5 "
        "2147483648 9007199254740993 1e15 1e16 1e17 inf -inf nan 1.7976931348623157e308 "
        "2.2250738585072014e-308 4.9406564584124654e-324 "
        // Decimal ties a few places down, which scaling by a power of ten
        // can move across the half.
        "75.385 40.305 0.045 1.115 8.345 -0.005 0.995 9.995 99.995 4294967.295 21474836.475";
    for (char* end = nullptr; *edgeText; edgeText = end)
        edges.push_back(std::strtod(edgeText, &end));
    Differences diff;
    auto compare = [&](double v, const char* pattern, Precision p) {
        diff.Check(FormatNumber(v, pattern, p), reference::Format(v, pattern, p),
                   Show(v) + " with " + pattern + (p == Precision::Single ? " (single)" : ""));
    };
    for (double v : edges)
        for (const char* pattern : kPatterns)
            for (Precision p : {Precision::Double, Precision::Single}) compare(v, pattern, p);

    Values values(20240611);
    const int n = 300000;
    const size_t patterns = std::size(kPatterns);
    for (int i = 0; i < n; ++i) {
        const double v = values.Next();
        // Each value in two patterns, taken in turn; every sixth value also
        // as a single-precision one.
        compare(v, kPatterns[i % patterns], Precision::Double);
        compare(v, kPatterns[(i * 7 + 3) % patterns], Precision::Double);
        if (i % 6 == 0) {
            const double f = static_cast<float>(v);
            compare(f, kPatterns[(i / 6) % patterns], Precision::Single);
        }
    }
    EXPECT_EQ(diff.count, 0) << diff.first.str();
}

TEST(NumberFormat, GeneralTextsSameAsTheCLibraryFormatter) {
    Differences diff;
    Values values(77);
    for (int i = 0; i < 200000; ++i) {
        const double v = values.Next();
        const Precision p = i % 3 == 0 ? Precision::Single : Precision::Double;
        const double w = p == Precision::Single ? static_cast<float>(v) : v;
        diff.Check(NumText(w, p), reference::NumText(w, p), "NumText " + Show(w));
        diff.Check(StrText(w, p), reference::StrText(w, p), "StrText " + Show(w));
    }
    EXPECT_EQ(diff.count, 0) << diff.first.str();
}

TEST(NumberFormat, AppendsToWhatIsThereRightAligned) {
    std::string line = "  Sun";
    AppendNumber(line, 7.25, "00");
    AppendNumber(line, -12.5, "##0.00");
    EXPECT_EQ(line, "  Sun07-12.50");

    Differences diff;
    Values values(3);
    for (int i = 0; i < 50000; ++i) {
        const double v = values.Next();
        const char* pattern = kPatterns[i % std::size(kPatterns)];
        const size_t width = static_cast<size_t>(i % 7);
        std::string got = "|";
        AppendRight(got, width, v, pattern);
        diff.Check(got, "|" + PadLeft(reference::Format(v, pattern, Precision::Double), width),
                   Show(v) + " with " + pattern + " in " + std::to_string(width));
    }
    EXPECT_EQ(diff.count, 0) << diff.first.str();
}
