#include "base/Dates.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <vector>

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
    std::string y = std::to_string(std::abs(d.year));
    if (y.size() < 4) y.insert(0, 4 - y.size(), '0');
    if (d.year < 0) y.insert(0, "-");
    return FormatNumber(d.day, "00") + " " + std::string(MonthAbbr(d.month)) + " " + y;
}

std::optional<CivilDate> ParseDate(std::string_view text, int dateOrder) {
    // Tokens: words and numbers; "-" before a number at the start of a token
    // is a separator except for the year written alone with a sign.
    std::vector<std::string> tok;
    std::string cur;
    for (char c : text) {
        if (c == ' ' || c == '/' || c == ',' || c == '-' || c == '.' || c == '\t') {
            if (!cur.empty()) tok.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty()) tok.push_back(cur);
    if (tok.size() != 3) return std::nullopt;

    auto isNum = [](const std::string& s) {
        if (s.empty() || s.size() > 6) return false;
        for (char c : s)
            if (!std::isdigit(static_cast<unsigned char>(c))) return false;
        return true;
    };
    CivilDate d;
    int wordAt = -1;
    for (int i = 0; i < 3; ++i)
        if (!isNum(tok[static_cast<size_t>(i)])) {
            if (wordAt >= 0) return std::nullopt;
            wordAt = i;
        }
    if (wordAt >= 0) {
        d.month = MonthFromName(tok[static_cast<size_t>(wordAt)]);
        if (d.month == 0) return std::nullopt;
        std::vector<std::string> nums;
        for (int i = 0; i < 3; ++i)
            if (i != wordAt) nums.push_back(tok[static_cast<size_t>(i)]);
        // The year is the number written with more than two digits or above
        // 31; otherwise the first number is the day.
        bool firstIsYear = nums[0].size() > 2 || std::atoi(nums[0].c_str()) > 31;
        d.year = std::atoi((firstIsYear ? nums[0] : nums[1]).c_str());
        d.day = std::atoi((firstIsYear ? nums[1] : nums[0]).c_str());
    } else {
        int a = std::atoi(tok[0].c_str()), b = std::atoi(tok[1].c_str()),
            c = std::atoi(tok[2].c_str());
        switch (dateOrder) {
        case 1:
            d = {a, b, c};
            break;
        case 2:
            d = {c, b, a};
            break;
        default:
            d = {b, a, c};
            break;
        }
    }
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
