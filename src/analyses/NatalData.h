// The chart header, the natal data listing (cusps and bodies), the wheel's
// header lines and the renderings they use.
#pragma once

#include <array>
#include <string>

#include "base/OutputBuffer.h"
#include "chart/Chart.h"

namespace kal {

// Sign, degree within the sign, minutes and seconds of a longitude.
struct Position {
    int sign = 1, deg = 0, min = 0, sec = 0;
};
// Minute precision, the minute rounded but never carried into the degree.
Position CuspPosition(double longitude);
// Second precision, truncated.
Position BodyPosition(double longitude);

// "05 Ari 23"
std::string CuspText(double longitude);
// "05 Ari 23m 07s"
std::string BodyText(double longitude);
// A deg.mm coordinate with its direction: 40.30 West gives "40w30".
std::string FmtCoord(double degMin, const std::string& direction);
// The entered date as "dd mmm yyyy".
std::string ChartDateText(const Chart& c, int dateOrder);

// The chart's data line without its indent: date, zone, time and place, as
// the header's third line and the report's title page show it.
std::string ChartDataLine(const Chart& c, int dateOrder);
// The three header lines every listing page starts with.
void ChartHeader(const Chart& c, int dateOrder, OutputBuffer& out);
// The cusp block and the body block of the natal copy.
void NatalData(const Chart& c, OutputBuffer& out);
void ListCusps(const Chart& c, OutputBuffer& out);
void ListBodies(const Chart& c, OutputBuffer& out);
std::string BodyLine(const Chart& c, int body);

// The chart wheel's seven header lines (element 0 unused).
using HeaderTable = std::array<std::string, 8>;
void BuildHeaderLines(const Chart& c, int dateOrder, HeaderTable& lines, HeaderTable& lines2);

} // namespace kal
