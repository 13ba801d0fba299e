#include "base/VbText.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace kal {

namespace {

// |v| rounded to `sig` significant decimal digits: the digits without
// trailing zeros and the power of ten of the first one
// (value = 0.d1d2d3... * 10^exp10). 0 and values that are not finite give
// the single digit 0 with exp10 1.
struct Decimal {
    char digits[24];
    int count = 0;
    int exp10 = 1;
    std::string_view view() const { return {digits, static_cast<size_t>(count)}; }
};

constexpr double kPow10[] = {1e0, 1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                             1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17};

Decimal ToDecimal(double v, int sig) {
    Decimal d;
    v = std::fabs(v);
    if (v == 0.0 || !std::isfinite(v)) {
        d.digits[d.count++] = '0';
        return d;
    }
    const std::uint64_t whole = v < kPow10[sig] ? static_cast<std::uint64_t>(v) : 0;
    if (whole != 0 && static_cast<double>(whole) == v) {
        // A whole number of at most `sig` digits is its own rounding.
        d.count = static_cast<int>(std::to_chars(d.digits, d.digits + sizeof d.digits, whole).ptr -
                                   d.digits);
        d.exp10 = d.count;
    } else {
        // d.ddde-XX, correctly rounded from the exact binary value with ties
        // to even, digit for digit what the C library's "%.*e" prints.
        char buf[40];
        const char* end =
            std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific, sig - 1).ptr;
        const char* c = buf;
        d.digits[d.count++] = *c++;
        if (*c == '.')
            for (++c; *c != 'e'; ++c) d.digits[d.count++] = *c;
        ++c; // past 'e'
        const bool negative = *c == '-';
        int e = 0;
        std::from_chars(c + 1, end, e);
        d.exp10 = (negative ? -e : e) + 1;
    }
    while (d.count > 1 && d.digits[d.count - 1] == '0') --d.count;
    return d;
}

// What a digit pattern asks for.
struct Pattern {
    bool point = false; // the pattern has a '.'
    int minInt = 0;     // integer digits at least: placeholders from the first '0'
    int frac = 0;       // fraction digits: placeholders after the point
    int minFrac = 0;    // fraction digits kept when zero: up to the last '0'
};

Pattern ReadPattern(std::string_view pattern) {
    Pattern p;
    int intLen = 0, firstZero = -1;
    for (char c : pattern) {
        if (c == '.' && !p.point) {
            p.point = true;
        } else if (!p.point) {
            if (c == '0' && firstZero < 0) firstZero = intLen;
            ++intLen;
        } else {
            ++p.frac;
            if (c == '0') p.minFrac = p.frac;
        }
    }
    p.minInt = firstZero < 0 ? 0 : intLen - firstZero;
    return p;
}

// |v| rounded half away from zero to a whole number, when that can be told
// without its decimal digits: |v| below 2^31 with fewer than `sig` integer
// digits, and a fraction far enough from one half that rounding to `sig`
// significant digits first (which moves the value by at most half a unit
// of the last digit) cannot carry it across. Nothing otherwise.
std::optional<std::uint32_t> QuickWhole(double v, int sig) {
    const double x = std::fabs(v);
    if (!(x < 2147483648.0)) return std::nullopt;
    const auto i = static_cast<std::uint32_t>(x);
    const double f = x - i; // exact
    int digits = 1;
    while (digits < 10 && i >= kPow10[digits]) ++digits;
    if (digits >= sig) return std::nullopt;
    if (std::fabs(f - 0.5) * kPow10[sig - digits] <= 1.0) return std::nullopt;
    return f >= 0.5 ? i + 1 : i;
}

// The number of a pattern with at most eight fraction places, right-aligned
// in `width`, composed from the right in one piece: v scaled by the power of
// ten of the places is rounded as a whole number (scaling moves it by less
// than the margin QuickWhole keeps from one half). False when it needs the
// decimal digits of v.
bool AppendQuickFixed(std::string& out, double v, const Pattern& p, int sig, size_t width) {
    if (p.frac > 8 || p.minInt > 16 || width > 16) return false;
    const auto whole = QuickWhole(p.frac == 0 ? v : v * kPow10[p.frac], sig);
    if (!whole) return false;
    char buf[48];
    char* const end = buf + sizeof buf;
    char* b = end;
    std::uint32_t w = *whole;
    int places = p.frac;
    // Fraction zeros beyond the pattern's last '0' are dropped, and the point
    // with them when no place is left.
    while (places > p.minFrac && w % 10 == 0) {
        w /= 10;
        --places;
    }
    for (int i = 0; i < places; ++i, w /= 10) *--b = static_cast<char>('0' + w % 10);
    if (places > 0) *--b = '.';
    const char* const point = b;
    for (; w != 0; w /= 10) *--b = static_cast<char>('0' + w % 10);
    while (point - b < p.minInt) *--b = '0';
    if (v < 0 && *whole != 0) *--b = '-';
    while (static_cast<size_t>(end - b) < width) *--b = ' ';
    out.append(b, static_cast<size_t>(end - b));
    return true;
}

} // namespace

void AppendNumber(std::string& out, double v, std::string_view pattern, Precision prec) {
    const Pattern p = ReadPattern(pattern);
    const int sig = static_cast<int>(prec);
    if (AppendQuickFixed(out, v, p, sig, 0)) return;

    const Decimal d = ToDecimal(v, sig);
    // Digit i of the value written out from its first integer place (from
    // the point when it is below 1), with zeros before and after its digits.
    const int lead = d.exp10 <= 0 ? -d.exp10 : 0;
    auto digitAt = [&](int i) {
        const int k = i - lead;
        return k >= 0 && k < d.count ? d.digits[k] : '0';
    };
    int intDigits = d.exp10 > 0 ? d.exp10 : 0;
    const int keep = intDigits + p.frac;

    // The kept digits, after one spare place for a carry.
    char small[64];
    std::string large;
    char* kept = small;
    if (keep + 1 > static_cast<int>(sizeof small)) {
        large.resize(static_cast<size_t>(keep) + 1);
        kept = large.data();
    }
    kept[0] = '0';
    for (int i = 0; i < keep; ++i) kept[i + 1] = digitAt(i);
    int first = 1;
    if (digitAt(keep) >= '5') { // half away from zero
        int i = keep;
        while (i >= 1 && kept[i] == '9') kept[i--] = '0';
        if (i >= 1) {
            ++kept[i];
        } else {
            kept[0] = '1';
            first = 0;
            ++intDigits;
        }
    }
    const char* intBegin = kept + first;
    const char* const intEnd = intBegin + intDigits;
    const char* fracEnd = kept + keep + 1;
    while (intBegin < intEnd && *intBegin == '0') ++intBegin;
    while (fracEnd - intEnd > p.minFrac && fracEnd[-1] == '0') --fracEnd;

    const int intLen = static_cast<int>(intEnd - intBegin);
    const bool nonzero =
        intLen > 0 || std::find_if(intEnd, fracEnd, [](char c) { return c != '0'; }) != fracEnd;
    if (v < 0 && nonzero) out += '-';
    if (intLen < p.minInt) out.append(static_cast<size_t>(p.minInt - intLen), '0');
    out.append(intBegin, intEnd);
    if (p.point && fracEnd > intEnd) {
        out += '.';
        out.append(intEnd, fracEnd);
    }
}

std::string FormatNumber(double v, std::string_view pattern, Precision p) {
    std::string out;
    AppendNumber(out, v, pattern, p);
    return out;
}

namespace {
std::string GeneralText(double v, Precision p, bool leadingZero) {
    const Decimal d = ToDecimal(v, static_cast<int>(p));
    const std::string_view digits = d.view();
    if (digits == "0") return "0";
    std::string s;
    if (v < 0) s += '-';
    const int n = d.count;
    if (d.exp10 > static_cast<int>(p) || d.exp10 < -static_cast<int>(p) + 1) {
        // Far outside the ordinary range: scientific form.
        s += digits[0];
        if (n > 1) {
            s += '.';
            s += digits.substr(1);
        }
        const int e = d.exp10 - 1;
        s += e < 0 ? "E-" : "E+";
        if (std::abs(e) < 10) s += '0';
        s += std::to_string(std::abs(e));
    } else if (d.exp10 <= 0) {
        s += leadingZero ? "0." : ".";
        s.append(static_cast<size_t>(-d.exp10), '0');
        s += digits;
    } else if (d.exp10 >= n) {
        s += digits;
        s.append(static_cast<size_t>(d.exp10 - n), '0');
    } else {
        s += digits.substr(0, static_cast<size_t>(d.exp10));
        s += '.';
        s += digits.substr(static_cast<size_t>(d.exp10));
    }
    return s;
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
    const bool negative = i < t.size() && t[i] == '-';
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
    // Digits with at most one point; anything else ends the number.
    const size_t start = i;
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        const char c = t[i];
        if (c >= '0' && c <= '9')
            digits = true;
        else if (c == '.' && !point)
            point = true;
        else
            break;
    }
    if (!digits) return 0.0;
    // Up to 15 digits make an exact whole number, and dividing it by an
    // exact power of ten rounds once: the same double the full reader gives.
    if (i - start <= 16) {
        std::uint64_t m = 0;
        int places = 0, count = 0;
        for (size_t k = start; k < i; ++k) {
            if (t[k] == '.') {
                places = static_cast<int>(i - k - 1);
                continue;
            }
            m = m * 10 + static_cast<std::uint64_t>(t[k] - '0');
            ++count;
        }
        if (count <= 15) {
            const double v = static_cast<double>(m) / kPow10[places];
            return negative ? -v : v;
        }
    }
    double v = 0;
    if (std::from_chars(t.data() + start, t.data() + i, v, std::chars_format::fixed).ec ==
        std::errc::result_out_of_range)
        v = std::strtod(std::string(t.substr(start, i - start)).c_str(), nullptr); // inf or 0
    return negative ? -v : v;
}

std::optional<double> NumberText(std::string_view t) {
    const size_t b = t.find_first_not_of(" \t");
    if (b == std::string_view::npos) return std::nullopt;
    const std::string_view s = t.substr(b, t.find_last_not_of(" \t") - b + 1);
    size_t i = 0;
    if (s[0] == '-' || s[0] == '+') ++i;
    bool digit = false, point = false;
    for (; i < s.size(); ++i) {
        if (s[i] >= '0' && s[i] <= '9')
            digit = true;
        else if (s[i] == '.' && !point)
            point = true;
        else
            return std::nullopt;
    }
    if (!digit) return std::nullopt;
    // A plain number through and through: Val reads it whole, to the double
    // the C library's reader gives.
    return Val(s);
}

std::optional<double> FieldNumber(std::string_view text) {
    auto v = NumberText(text);
    if (!v || !std::isfinite(*v) || std::fabs(*v) >= 1e15) return std::nullopt;
    return v;
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

void AppendRight(std::string& out, size_t n, double v, std::string_view pattern) {
    if (AppendQuickFixed(out, v, ReadPattern(pattern), static_cast<int>(Precision::Double), n))
        return;
    const size_t at = out.size();
    AppendNumber(out, v, pattern);
    const size_t len = out.size() - at;
    if (len < n) out.insert(at, n - len, ' ');
}

void AppendLeft(std::string& out, std::string_view text, size_t n) {
    out += text;
    if (text.size() < n) out.append(n - text.size(), ' ');
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

short RoundToShort(double v) {
    double r = std::nearbyint(v);
    if (!(r <= std::numeric_limits<short>::max())) r = std::numeric_limits<short>::max();
    if (r < std::numeric_limits<short>::min()) r = std::numeric_limits<short>::min();
    return static_cast<short>(r);
}

} // namespace kal
