#include "birthdata/Record.h"

#include <array>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "birthdata/InputRules.h"
#include "shell/VbText.h"

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

std::optional<BirthRecord> ParseRecordLine(std::string_view line) {
    std::vector<std::string> f = SplitFields(line);
    if (f.size() < 7 || f.size() > 8) return std::nullopt;
    f.resize(8);
    return BirthRecord{f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7]};
}

std::string RecordLine(const BirthRecord& r) {
    return r.RecName + "," + r.RecDate + "," + r.RecTime + "," + r.RecAmPm + "," + r.RecTZ + "," +
           r.RecLong + "," + r.RecLat + "," + r.RecEmail;
}

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

Message RecordFormatError() {
    return {"Format error or typographical error in selected data. Please correct this data "
            "entry by clicking on the Edit this List command button in the Names window and "
            "editing the data associated with your chosen name.",
            "Error!", Icon::Critical};
}

std::optional<Message> TransferRecord(BirthRecord& rec, int dateOrder, InputFields& in) {
    in.txtName = rec.RecName;

    // Date.
    if (dateOrder == 2 && rec.RecDate.size() >= 5 && rec.RecDate[4] != ' ') {
        auto d = ParseDate(rec.RecDate, 1);
        if (!d) return RecordFormatError();
        rec.RecDate = std::to_string(d->year) + " " + std::string(MonthAbbr(d->month)) + " " +
                      FormatNumber(d->day, "00");
    }
    auto d = ParseDate(rec.RecDate, dateOrder);
    if (!d) return RecordFormatError();
    in.txtMonth = std::to_string(d->month);
    in.txtDay = std::to_string(d->day);
    in.txtYear = std::to_string(d->year);

    // Time and half of day.
    auto t = NumberText(rec.RecTime);
    if (!t) return RecordFormatError();
    double th = std::floor(*t);
    // Setting the hour field runs its check, as typing does: hour 0 becomes
    // 12 and an hour above 12 is brought back to the 12-hour clock. The half
    // of the day is then taken from the record.
    bool checkChosePM = false;
    in.txtBirthHour = SettleBirthHour(NumText(th), checkChosePM);
    in.txtBirthMinute = FormatNumber((*t - th) * 100, "#0");
    in.optAM = Upper(Trim(rec.RecAmPm)) == "A";

    // Longitude and time zone.
    auto lon = NumberText(rec.RecLong);
    auto tz = NumberText(rec.RecTZ);
    if (!lon || !tz) return RecordFormatError();
    double al = std::fabs(*lon);
    in.txtLongDeg = NumText(std::floor(al));
    in.optEast = *lon < 0;
    in.txtTZ = NumText(*tz);
    in.txtLongMin = FormatNumber((al - std::floor(al)) * 100, "#0");

    // Latitude.
    auto lat = NumberText(rec.RecLat);
    if (!lat) return RecordFormatError();
    double aa = std::fabs(*lat);
    in.txtLatDeg = NumText(std::floor(aa));
    in.optSouth = *lat < 0;
    in.txtLatMin = FormatNumber((aa - std::floor(aa)) * 100, "#0");

    in.txtEmail = rec.RecEmail;
    return std::nullopt;
}

} // namespace kal
