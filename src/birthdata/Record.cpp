#include "birthdata/Record.h"

#include <cmath>

#include "base/VbText.h"
#include "birthdata/InputRules.h"

namespace kal {

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

Message RecordFormatError() {
    return {"Format error or typographical error in selected data. Please correct this data "
            "entry by clicking on the Edit this List command button in the Names window and "
            "editing the data associated with your chosen name.",
            "Error!", Icon::Critical};
}

std::optional<Message> TransferRecord(BirthRecord& rec, int dateOrder, InputFields& in) {
    in.txtName = rec.RecName;

    // Date.
    // A year written with two digits ("12 May 59") is read as the system's
    // date reader reads it.
    if (dateOrder == 2 && rec.RecDate.size() >= 5 && rec.RecDate[4] != ' ') {
        auto d = ParseDate(rec.RecDate, 1, ShortYear::Windowed);
        if (!d) return RecordFormatError();
        rec.RecDate = std::to_string(d->year) + " " + std::string(MonthAbbr(d->month)) + " " +
                      FormatNumber(d->day, "00");
    }
    auto d = ParseDate(rec.RecDate, dateOrder, ShortYear::Windowed);
    if (!d) return RecordFormatError();
    in.txtMonth = std::to_string(d->month);
    in.txtDay = std::to_string(d->day);
    in.txtYear = std::to_string(d->year);

    // Time and half of day.
    auto t = FieldNumber(rec.RecTime);
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
    auto lon = FieldNumber(rec.RecLong);
    auto tz = FieldNumber(rec.RecTZ);
    if (!lon || !tz) return RecordFormatError();
    double al = std::fabs(*lon);
    in.txtLongDeg = NumText(std::floor(al));
    in.optEast = *lon < 0;
    in.txtTZ = NumText(*tz);
    in.txtLongMin = FormatNumber((al - std::floor(al)) * 100, "#0");

    // Latitude.
    auto lat = FieldNumber(rec.RecLat);
    if (!lat) return RecordFormatError();
    double aa = std::fabs(*lat);
    in.txtLatDeg = NumText(std::floor(aa));
    in.optSouth = *lat < 0;
    in.txtLatMin = FormatNumber((aa - std::floor(aa)) * 100, "#0");

    in.txtEmail = rec.RecEmail;
    return std::nullopt;
}

} // namespace kal
