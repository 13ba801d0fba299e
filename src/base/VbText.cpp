#include "base/VbText.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace kal {

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

std::string FormatNumber(double v, std::string_view pattern, Precision p) {
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

double Val(std::string_view t) {
    size_t i = 0;
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) ++i;
    std::string num;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) num += t[i++];
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        char c = t[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            num += c;
            digits = true;
        } else if (c == '.' && !point) {
            num += c;
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return 0.0;
    return std::strtod(num.c_str(), nullptr);
}

std::optional<double> NumberText(std::string_view t) {
    std::string s = Trim(t);
    size_t i = 0;
    if (!s.empty() && (s[0] == '-' || s[0] == '+')) ++i;
    bool digit = false, point = false;
    for (; i < s.size(); ++i) {
        if (std::isdigit(static_cast<unsigned char>(s[i])))
            digit = true;
        else if (s[i] == '.' && !point)
            point = true;
        else
            return std::nullopt;
    }
    if (!digit) return std::nullopt;
    return std::strtod(s.c_str(), nullptr);
}

std::vector<std::string> SplitFields(std::string_view line) {
    std::vector<std::string> f;
    size_t start = 0;
    while (true) {
        size_t comma = line.find(',', start);
        std::string_view field =
            line.substr(start, comma == std::string_view::npos ? line.npos : comma - start);
        size_t b = field.find_first_not_of(" \t");
        f.emplace_back(b == std::string_view::npos ? std::string_view{} : field.substr(b));
        if (comma == std::string_view::npos) break;
        start = comma + 1;
    }
    return f;
}

std::string PadLeft(std::string_view text, size_t n) {
    std::string s(text);
    if (s.size() < n) s.insert(0, n - s.size(), ' ');
    return s;
}

std::string PadRight(std::string_view text, size_t n) {
    std::string s(text);
    if (s.size() < n) s.append(n - s.size(), ' ');
    return s;
}

std::string Upper(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return r;
}

std::string Lower(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return r;
}

std::string Trim(std::string_view s) {
    size_t b = s.find_first_not_of(" \t");
    if (b == std::string_view::npos) return "";
    size_t e = s.find_last_not_of(" \t");
    return std::string(s.substr(b, e - b + 1));
}

} // namespace kal
