#include "analyses/NatalData.h"

#include <cctype>
#include <cmath>

#include "base/Dates.h"
#include "base/VbText.h"

namespace kal {

namespace {
Position SignAndDegree(double L) {
    Position p;
    double W = std::floor(L);
    p.sign = static_cast<int>(std::floor(W / 30)) + 1;
    p.deg = static_cast<int>(W) - 30 * (p.sign - 1);
    return p;
}
} // namespace

Position CuspPosition(double L) {
    Position p = SignAndDegree(L);
    double W = std::floor(L);
    p.min = static_cast<int>(std::floor((L - W) * 60 + 0.5));
    if (p.min == 60) p.min = 59;
    return p;
}

Position BodyPosition(double L) {
    Position p = SignAndDegree(L);
    double W = std::floor(L);
    double f = (L - W) * 60;
    p.min = static_cast<int>(std::floor(f));
    p.sec = static_cast<int>(std::floor((f - p.min) * 60));
    return p;
}

namespace {
// A whole number in at least two digits, as the pattern "00" gives it.
void AppendTwoDigits(std::string& out, int n) {
    if (n < 0 || n > 99) {
        AppendNumber(out, n, "00");
        return;
    }
    const char digits[2] = {static_cast<char>('0' + n / 10), static_cast<char>('0' + n % 10)};
    out.append(digits, 2);
}

// deg, sign abbreviation and minutes: "05 Ari 23".
void AppendDegSignMin(std::string& out, const Position& p) {
    AppendTwoDigits(out, p.deg);
    out += ' ';
    out += SignAbbrOf(p.sign);
    out += ' ';
    AppendTwoDigits(out, p.min);
}

void AppendBodyText(std::string& out, double L) {
    const Position p = BodyPosition(L);
    AppendDegSignMin(out, p);
    out += "m ";
    AppendTwoDigits(out, p.sec);
    out += 's';
}
} // namespace

std::string CuspText(double L) {
    std::string s;
    AppendDegSignMin(s, CuspPosition(L));
    return s;
}

std::string BodyText(double L) {
    std::string s;
    AppendBodyText(s, L);
    return s;
}

std::string FmtCoord(double v, const std::string& direction) {
    std::string s = FormatNumber(std::fabs(v), "##0.00", Precision::Single);
    size_t at = s.find('.');
    if (at == std::string::npos) at = s.find(',');
    if (at != std::string::npos && !direction.empty())
        s[at] = static_cast<char>(std::tolower(static_cast<unsigned char>(direction[0])));
    return s;
}

std::string ChartDateText(const Chart& c, int dateOrder) {
    if (auto d = ParseDate(c.ChartDate, dateOrder)) return FormatDateDMY(*d);
    // A date the calendar does not know (31 February passes the input
    // checks): show the numbers as entered.
    return FormatDateDMY({c.ChartDay, c.ChartMonth, c.ChartYear});
}

namespace {
void AppendChartData(std::string& line, const Chart& c, int dateOrder) {
    line += ChartDateText(c, dateOrder);
    line += "    TZ = ";
    AppendNumber(line, c.ChartTZ, "##0.0", Precision::Single);
    line += "      ";
    AppendNumber(line, c.ChartTime, "#0.00", Precision::Single);
    line += ' ';
    line += c.ChartAMPM;
    line += "   ";
    line += FmtCoord(c.ChartLong, c.ChartEW);
    line += "    ";
    line += FmtCoord(c.ChartLat, c.ChartNS);
}
} // namespace

std::string ChartDataLine(const Chart& c, int dateOrder) {
    std::string line;
    AppendChartData(line, c, dateOrder);
    return line;
}

void ChartHeader(const Chart& c, int dateOrder, OutputBuffer& out) {
    out.AppendBlankLine();
    out.AppendJoined("  ", c.ChartName);
    std::string& line = out.BeginLine();
    line += "  ";
    AppendChartData(line, c, dateOrder);
    out.EndLine();
}

void ListCusps(const Chart& c, OutputBuffer& out) {
    out.AppendBlankLine();
    out.AppendJoined("  HOUSE CUSPS - ", HouseSystemName(c.HouseSystem));
    // Three cusps a line.
    for (int first = 1; first <= 12; first += 3) {
        std::string& line = out.BeginLine();
        for (int k = first; k < first + 3; ++k) {
            line += k == first ? "  " : " ";
            line += HouseLabel(k);
            line += " house = ";
            AppendDegSignMin(line, CuspPosition(c.NatalCusp[static_cast<size_t>(k)]));
        }
        out.EndLine();
    }
}

namespace {
void AppendBodyLine(std::string& line, const Chart& c, int j) {
    line += "  ";
    AppendBodyText(line, c.NatalLong[static_cast<size_t>(j)]);
    line += "   ";
    line += PlanetNamesField(j);
    line += c.NatalRetro.at(static_cast<size_t>(j - 1));
    line += "    (";
    line += std::string_view(c.PlanetHouse).substr(static_cast<size_t>(10 * j - 10), 10);
    line += ")    ";
}
} // namespace

std::string BodyLine(const Chart& c, int j) {
    std::string line;
    AppendBodyLine(line, c, j);
    return line;
}

void ListBodies(const Chart& c, OutputBuffer& out) {
    out.AppendBlankLine();
    auto body = [&](int j) {
        AppendBodyLine(out.BeginLine(), c, j);
        out.EndLine();
    };
    body(Sun);
    body(Moon);
    for (int j = Mercury; j <= Pluto; ++j) body(j);
    for (int j = NNode; j <= NumBodies; ++j) body(j);
}

void NatalData(const Chart& c, OutputBuffer& out) {
    ListCusps(c, out);
    ListBodies(c, out);
}

void BuildHeaderLines(const Chart& c, int dateOrder, HeaderTable& lines, HeaderTable& lines2) {
    lines = {};
    lines[1] = c.ChartName + " - natal";
    lines[2] = ChartDateText(c, dateOrder);
    lines[3] = FormatSingle(c.ChartTime, "#0.00") + " " + c.ChartAMPM + " (" +
               StrText(c.ChartTZ, Precision::Single) + ")";
    lines[4] = FmtCoord(c.ChartLong, c.ChartEW);
    lines[5] = FmtCoord(c.ChartLat, c.ChartNS);
    lines[6] = c.NatalSidereal;
    lines[7] = HouseSystemName(c.HouseSystem);
    lines2 = {};
}

} // namespace kal
