#include "birthdata/InputRules.h"

#include <cctype>
#include <cmath>

#include "base/VbText.h"

namespace kal {

namespace {

std::string OptionText(const Options& o, int n) {
    return NumText(o[n], Precision::Single);
}

// The number a text reads as with its blanks taken out: " 71. 4" is 71.4.
double ValWithoutBlanks(std::string_view text) {
    std::string packed;
    for (char c : text)
        if (c != ' ' && c != '\t') packed += c;
    return Val(packed);
}

// Degrees and minutes around the direction letter at `p`, as number texts.
void SplitAngle(std::string_view text, std::size_t p, std::string& degrees, std::string& minutes) {
    degrees = NumText(Val(Trim(text.substr(0, p))));
    minutes = NumText(Val(Trim(text.substr(p + 1))));
}

} // namespace

void FillNowDateTime(InputFields& in, const std::tm& now, int timeFormat) {
    in.txtMonth = std::to_string(now.tm_mon + 1);
    in.txtDay = std::to_string(now.tm_mday);
    in.txtYear = std::to_string(now.tm_year + 1900);
    const int h24 = now.tm_hour;
    const int shown = timeFormat == 1 ? h24 : (h24 % 12 == 0 ? 12 : h24 % 12);
    in.txtBirthMinute = std::to_string(now.tm_min);
    in.optAM = h24 < 12;
    bool pm = false;
    in.txtBirthHour = SettleBirthHour(std::to_string(shown), pm);
    if (pm) in.optAM = false;
}

void FillHomePlace(InputFields& in, const Options& o) {
    in.txtTZ = OptionText(o, 18);
    in.txtLongDeg = OptionText(o, 19);
    in.txtLongMin = OptionText(o, 20);
    in.optEast = o[21] != 0;
    in.txtLatDeg = OptionText(o, 22);
    in.txtLatMin = OptionText(o, 23);
    in.optSouth = o[24] != 0;
}

void FillNow(InputFields& in, const std::tm& now, int timeFormat, const Options& o) {
    in.txtName = "Now";
    FillNowDateTime(in, now, timeFormat);
    FillHomePlace(in, o);
}

Message BirthHourEmptyMessage() {
    return {"Please fill in a value for birth hour.", "Warning!", Icon::Information};
}

Message TypingTooFastMessage() {
    return {"You are typing too fast. Please slow down.", "Warning!", Icon::Information};
}

BirthHourCheck CheckBirthHour(std::string_view text) {
    BirthHourCheck r;
    if (text.empty()) {
        r.message = BirthHourEmptyMessage();
        return r;
    }
    if (!NumberText(text).has_value()) {
        r.message = TypingTooFastMessage();
        return r;
    }
    double v = Val(text);
    if (v == 0) {
        r.newText = "12";
        return r;
    }
    if (v > 12) {
        r.setPM = true;
        r.newText = NumText(v - 12);
    }
    return r;
}

std::string SettleBirthHour(std::string_view text, bool& pm) {
    std::string t(text);
    pm = false;
    for (int round = 0; round < 64; ++round) {
        BirthHourCheck c = CheckBirthHour(t);
        if (c.setPM) pm = true;
        if (!c.newText || *c.newText == t) break;
        t = *c.newText;
    }
    return t;
}

bool InputKeyAccepted(std::string_view field, char c) {
    const bool digit = std::isdigit(static_cast<unsigned char>(c)) != 0;
    const bool back = c == '\b';
    if (field == "txtName" || field == "txtEmail") return true;
    if (field == "txtBirthMinute") return digit || back || c == '.';
    if (field == "txtYear") return digit || back || c == '-';
    if (field == "txtTZ") return digit || back || c == '-' || c == '.';
    if (field == "txtMonth" || field == "txtDay" || field == "txtBirthHour" ||
        field == "txtLongDeg" || field == "txtLongMin" || field == "txtLatDeg" ||
        field == "txtLatMin")
        return digit || back;
    return true;
}

bool ApplyAtlasPlace(InputFields& in, std::string_view atlasLong, std::string_view atlasLat,
                     float atlasZone) {
    std::size_t p = atlasLong.find('W');
    if (p == std::string_view::npos) p = atlasLong.find('E');
    if (p == std::string_view::npos) return false;
    std::string dotted(atlasLong);
    dotted[p] = '.';
    if (ValWithoutBlanks(dotted) > 180) return false;

    in.txtTZ = NumText(atlasZone, Precision::Single);
    SplitAngle(atlasLong, p, in.txtLongDeg, in.txtLongMin);
    in.optEast = atlasLong.find('W') == std::string_view::npos;
    std::size_t q = atlasLat.find('N');
    if (q == std::string_view::npos) q = atlasLat.find('S');
    if (q != std::string_view::npos) {
        SplitAngle(atlasLat, q, in.txtLatDeg, in.txtLatMin);
        in.optSouth = atlasLat.find('N') == std::string_view::npos;
    }
    return true;
}

std::string ZoneForDirection(std::string_view tz, bool east) {
    double v = std::fabs(Val(tz));
    if (v == 0) return "0";
    return NumText(east ? -v : v);
}

} // namespace kal
