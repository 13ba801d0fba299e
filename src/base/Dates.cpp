#include "base/Dates.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>

#include "base/VbText.h"

namespace kal {

namespace {

constexpr std::array<std::string_view, 13> kMonths = {
    "", "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 13> kMonthsLong = {
    "",     "january", "february",  "march",   "april",    "may",     "june",
    "july", "august",  "september", "october", "november", "december"};

bool IsLeap(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int MonthFromName(std::string_view word) {
    std::string w = Lower(word);
    if (w.size() < 3) return 0;
    for (int m = 1; m <= 12; ++m) {
        std::string_view full = kMonthsLong[static_cast<size_t>(m)];
        if (full.substr(0, w.size()) == w) return m;
    }
    return 0;
}

} // namespace

std::string_view MonthAbbr(int month) {
    if (month < 1 || month > 12) return "???";
    return kMonths[static_cast<size_t>(month)];
}

std::string FormatDateDMY(const CivilDate& d) {
    std::string s;
    s.reserve(12);
    AppendNumber(s, d.day, "00");
    s += ' ';
    s += MonthAbbr(d.month);
    s += ' ';
    if (d.year < 0) s += '-';
    const std::string y = std::to_string(std::abs(d.year));
    if (y.size() < 4) s.append(4 - y.size(), '0');
    return s += y;
}

std::optional<CivilDate> ParseDate(std::string_view text, int dateOrder, ShortYear shortYear) {
    // Tokens: words and numbers; "-" before a number at the start of a token
    // is a separator except for the year written alone with a sign.
    std::array<std::string_view, 3> tok;
    size_t count = 0;
    for (size_t i = 0; i < text.size();) {
        auto separator = [](char c) {
            return c == ' ' || c == '/' || c == ',' || c == '-' || c == '.' || c == '\t';
        };
        if (separator(text[i])) {
            ++i;
            continue;
        }
        size_t end = i;
        while (end < text.size() && !separator(text[end])) ++end;
        if (count == tok.size()) return std::nullopt;
        tok[count++] = text.substr(i, end - i);
        i = end;
    }
    if (count != 3) return std::nullopt;

    auto isNum = [](std::string_view s) {
        if (s.empty() || s.size() > 6) return false;
        for (char c : s)
            if (!std::isdigit(static_cast<unsigned char>(c))) return false;
        return true;
    };
    // The value of a token of at most six digits.
    auto number = [](std::string_view s) {
        int v = 0;
        std::from_chars(s.data(), s.data() + s.size(), v);
        return v;
    };
    CivilDate d;
    std::string_view yearText;
    int wordAt = -1;
    for (int i = 0; i < 3; ++i)
        if (!isNum(tok[static_cast<size_t>(i)])) {
            if (wordAt >= 0) return std::nullopt;
            wordAt = i;
        }
    if (wordAt >= 0) {
        d.month = MonthFromName(tok[static_cast<size_t>(wordAt)]);
        if (d.month == 0) return std::nullopt;
        std::array<std::string_view, 2> nums;
        for (size_t i = 0, n = 0; i < 3; ++i)
            if (static_cast<int>(i) != wordAt) nums[n++] = tok[i];
        // The year is the number written with more than two digits or above
        // 31; otherwise the first number is the day.
        bool firstIsYear = nums[0].size() > 2 || number(nums[0]) > 31;
        yearText = firstIsYear ? nums[0] : nums[1];
        d.day = number(firstIsYear ? nums[1] : nums[0]);
    } else {
        int a = number(tok[0]), b = number(tok[1]), c = number(tok[2]);
        switch (dateOrder) {
        case 1:
            d = {a, b, c};
            yearText = tok[2];
            break;
        case 2:
            d = {c, b, a};
            yearText = tok[0];
            break;
        default:
            d = {b, a, c};
            yearText = tok[2];
            break;
        }
    }
    d.year = number(yearText);
    if (shortYear == ShortYear::Windowed && yearText.size() <= 2)
        d.year += d.year < 30 ? 2000 : 1900;
    if (d.month < 1 || d.month > 12 || d.day < 1) return std::nullopt;
    int dim =
        d.month == 2 && IsLeap(d.year)
            ? 29
            : std::array{
                  0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31}[static_cast<size_t>(d.month)];
    if (d.day > dim) return std::nullopt;
    return d;
}

} // namespace kal
