// Number and text conversions with the exact behaviour the listings and data
// files rely on: pattern formatting ("00", "##0.0", "#00#.#0" ...), the general
// number-to-text forms with and without a leading blank, and reading the
// number at the start of a text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kal {

// Significant digits used when a value is turned into decimal digits before
// rounding: 15 for 64-bit values, 7 for 32-bit ones.
enum class Precision { Double = 15, Single = 7 };

// Formats v with a digit pattern made of '#', '0' and at most one '.'.
// Integer part: at least as many digits as there are placeholders from the
// first '0' on. Fraction: as many digits as placeholders, trailing zeros kept
// up to the last '0'. Rounds half away from zero on the decimal digits of v.
std::string FormatNumber(double v, std::string_view pattern, Precision p = Precision::Double);
// The same appended to `out`.
void AppendNumber(std::string& out, double v, std::string_view pattern,
                  Precision p = Precision::Double);
inline std::string FormatSingle(float v, std::string_view pattern) {
    return FormatNumber(static_cast<double>(v), pattern, Precision::Single);
}

// General number-to-text without a leading blank ("5", "-5.5", "0.25").
std::string NumText(double v, Precision p = Precision::Double);
// The same with a leading blank for values not below 0 (" 5", "-1", " .5"):
// the old BASIC Str form, which also drops the zero before the point.
std::string StrText(double v, Precision p = Precision::Double);

// Reads the number at the start of text: leading blanks and tabs skipped,
// an optional sign, digits, an optional point and digits. Anything else ends
// the number; text that does not start with one reads as 0.
double Val(std::string_view text);

// The value of a text that is a plain number and nothing else: blanks around
// it, an optional sign, digits and at most one point (no exponent). Nothing
// for any other text.
std::optional<double> NumberText(std::string_view text);

// The value of a plain number (NumberText) that the general number-to-text
// form writes in plain digits: finite and below 1e15 in size. A number read
// from a data file goes through a text field as that form, and a larger one
// would come back as "1E+16", read as 1. Nothing for any other text.
std::optional<double> FieldNumber(std::string_view text);

// Splits a data-file line at its commas; leading blanks of each field are
// skipped. A line without commas is one field.
std::vector<std::string> SplitFields(std::string_view line);

// Right-aligns text in a field of width n (no truncation).
std::string PadLeft(std::string_view text, size_t n);
// Left-aligns text in a field of width n (no truncation).
std::string PadRight(std::string_view text, size_t n);
// The same two appended to `out`: a number formatted with a pattern and
// right-aligned, a text left-aligned.
void AppendRight(std::string& out, size_t n, double v, std::string_view pattern);
void AppendLeft(std::string& out, std::string_view text, size_t n);

// Upper-cases ASCII letters.
std::string Upper(std::string_view s);
std::string Lower(std::string_view s);
// Removes leading and trailing blanks.
std::string Trim(std::string_view s);

// A number as a 16-bit integer variable takes it: rounded half to even and
// held within -32768..32767 (a larger number in a data file would not fit).
short RoundToShort(double v);

} // namespace kal
