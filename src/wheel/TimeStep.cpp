#include "wheel/TimeStep.h"

#include <cmath>

#include "base/VbText.h"
#include "chart/Tables.h"

namespace kal {

namespace {

// A whole number from a text field, as an integer variable takes it.
short WholeValue(const std::string& text) {
    return static_cast<short>(std::nearbyint(Val(text)));
}

void AddDay(SteppedRecord& r) {
    ++r.UpdDay;
    if (r.UpdDay > MonthLength(r.UpdMonth, r.UpdYear)) {
        r.UpdDay = 1;
        if (++r.UpdMonth > 12) {
            r.UpdMonth = 1;
            ++r.UpdYear;
        }
    }
}

void SubDay(SteppedRecord& r) {
    --r.UpdDay;
    if (r.UpdDay < 1) {
        if (--r.UpdMonth < 1) {
            r.UpdMonth = 12;
            --r.UpdYear;
        }
        r.UpdDay = static_cast<short>(MonthLength(r.UpdMonth, r.UpdYear));
    }
}

float Whole(float v) {
    return std::floor(v);
}

void AddHour(SteppedRecord& r) {
    r.UpdHour += 1;
    if (Whole(r.UpdHour) == 13) r.UpdHour -= 12;
    if (Whole(r.UpdHour) == 12) {
        // The clock has just reached twelve.
        if (r.UpdPM == 1) {
            r.UpdPM = 0;
            AddDay(r);
        } else {
            r.UpdPM = 1;
        }
    }
}

void SubHour(SteppedRecord& r) {
    r.UpdHour -= 1;
    if (Whole(r.UpdHour) == 0) r.UpdHour += 12;
    if (Whole(r.UpdHour) == 11) {
        // The clock has just left twelve.
        if (r.UpdPM != 1) {
            r.UpdPM = 1;
            SubDay(r);
        } else {
            r.UpdPM = 0;
        }
    }
}

} // namespace

SteppedRecord SteppedFromInput(const InputFields& in) {
    SteppedRecord r;
    r.UpdMonth = WholeValue(in.txtMonth);
    r.UpdDay = WholeValue(in.txtDay);
    r.UpdYear = WholeValue(in.txtYear);
    r.UpdHour = static_cast<float>(Val(in.txtBirthHour));
    r.UpdMinute = static_cast<float>(Val(in.txtBirthMinute));
    r.UpdPM = in.optPM() ? 1 : 0;
    r.UpdTZ = static_cast<float>(Val(in.txtTZ));
    r.UpdLongDeg = WholeValue(in.txtLongDeg);
    r.UpdLongMin = WholeValue(in.txtLongMin);
    r.UpdLatDeg = WholeValue(in.txtLatDeg);
    r.UpdLatMin = WholeValue(in.txtLatMin);
    r.UpdWest = in.optWest() ? 1 : 0;
    r.UpdSouth = in.optSouth ? 1 : 0;
    return r;
}

int MonthLength(int month, int year) {
    if (month == 2) return year % 4 == 0 ? 29 : 28;
    if (month < 1 || month > 12) return 31;
    return DaysInMonth[static_cast<size_t>(month)];
}

void StepTime(SteppedRecord& r, TimeStep step) {
    switch (step) {
    case TimeStep::AddDay:
        AddDay(r);
        break;
    case TimeStep::SubDay:
        SubDay(r);
        break;
    case TimeStep::AddHour:
        AddHour(r);
        break;
    case TimeStep::SubHour:
        SubHour(r);
        break;
    case TimeStep::AddMinute:
        r.UpdMinute += 1;
        if (Whole(r.UpdMinute) >= 60) {
            r.UpdMinute -= 60;
            AddHour(r);
        }
        break;
    case TimeStep::SubMinute:
        r.UpdMinute -= 1;
        if (Whole(r.UpdMinute) < 0) {
            r.UpdMinute += 60;
            SubHour(r);
        }
        break;
    }
}

} // namespace kal
