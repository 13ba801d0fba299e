// Calendar dates as the names files and the input fields write them:
// reading "12 May 1959", "1959 May 12" or numbers in the regional order,
// and writing "dd mmm yyyy".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kal {

// A calendar date as read from text.
struct CivilDate {
    int day = 0, month = 0, year = 0;
};

// How a year written with one or two digits is read.
enum class ShortYear {
    AsWritten, // "59" is the year 59 (the input window's year field)
    Windowed,  // as a system date reader takes it: 00-29 the 2000s, 30-99 the 1900s
};

// Reads a date the way the names file and the input fields write it:
// "12 May 1959", "1959 May 12", or numbers separated by "/", "-" or blanks in
// the order of dateOrder (0 month-day-year, 1 day-month-year, 2 year-month-day).
// Nothing when the text is not a real calendar date.
std::optional<CivilDate> ParseDate(std::string_view text, int dateOrder,
                                   ShortYear shortYear = ShortYear::AsWritten);

// "dd mmm yyyy" ("05 Mar 2007").
std::string FormatDateDMY(const CivilDate& d);
// Three-letter English month name of month 1..12.
std::string_view MonthAbbr(int month);

} // namespace kal
