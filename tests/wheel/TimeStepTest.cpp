// The wheel's time steps on the 12-hour clock, with their carries into the
// day, month and year, and the first stepped moment from the input fields.
#include <gtest/gtest.h>

#include <tuple>

#include "wheel/TimeStep.h"

using namespace kal;

namespace {

struct Moment {
    int year, month, day;
    float hour, minute;
    bool pm;
};

SteppedRecord At(const Moment& m) {
    SteppedRecord r;
    r.UpdYear = static_cast<short>(m.year);
    r.UpdMonth = static_cast<short>(m.month);
    r.UpdDay = static_cast<short>(m.day);
    r.UpdHour = m.hour;
    r.UpdMinute = m.minute;
    r.UpdPM = m.pm ? 1 : 0;
    return r;
}

auto Tuple(const SteppedRecord& r) {
    return std::make_tuple(r.UpdYear, r.UpdMonth, r.UpdDay, r.UpdHour, r.UpdMinute, r.UpdPM);
}

} // namespace

TEST(TimeSteps, CarryThroughTheClockAndTheCalendar) {
    const bool AM = false, PM = true;
    const struct {
        Moment from;
        TimeStep step;
        Moment to;
    } rows[] = {
        // Minutes: across midnight and the year, across noon, and plain.
        {{1999, 12, 31, 11, 59, PM}, TimeStep::AddMinute, {2000, 1, 1, 12, 0, AM}},
        {{2000, 1, 1, 12, 0, AM}, TimeStep::SubMinute, {1999, 12, 31, 11, 59, PM}},
        {{2001, 6, 5, 11, 59, AM}, TimeStep::AddMinute, {2001, 6, 5, 12, 0, PM}},
        {{2001, 6, 5, 3, 30, PM}, TimeStep::AddMinute, {2001, 6, 5, 3, 31, PM}},
        // Hours across twelve: 12:30 A.M. back to the day before, 12:30 P.M.
        // to the same morning, 1 P.M. back to noon, noon on to 1 P.M.
        {{2001, 3, 1, 12, 30, AM}, TimeStep::SubHour, {2001, 2, 28, 11, 30, PM}},
        {{2001, 3, 1, 12, 30, PM}, TimeStep::SubHour, {2001, 3, 1, 11, 30, AM}},
        {{2001, 3, 1, 1, 0, PM}, TimeStep::SubHour, {2001, 3, 1, 12, 0, PM}},
        {{2001, 3, 1, 12, 0, PM}, TimeStep::AddHour, {2001, 3, 1, 1, 0, PM}},
        {{2001, 3, 1, 11, 15, PM}, TimeStep::AddHour, {2001, 3, 2, 12, 15, AM}},
        // A fractional hour keeps its fraction.
        {{2001, 3, 1, 12.5f, 0, AM}, TimeStep::SubHour, {2001, 2, 28, 11.5f, 0, PM}},
        // Days: every fourth year has 29 February, 1900 too (no century rule).
        {{1996, 2, 28, 9, 0, AM}, TimeStep::AddDay, {1996, 2, 29, 9, 0, AM}},
        {{1900, 2, 28, 9, 0, AM}, TimeStep::AddDay, {1900, 2, 29, 9, 0, AM}},
        {{1900, 2, 29, 9, 0, AM}, TimeStep::AddDay, {1900, 3, 1, 9, 0, AM}},
        {{2001, 3, 1, 9, 0, AM}, TimeStep::SubDay, {2001, 2, 28, 9, 0, AM}},
        {{2000, 1, 1, 9, 0, AM}, TimeStep::SubDay, {1999, 12, 31, 9, 0, AM}},
        {{1999, 4, 30, 9, 0, AM}, TimeStep::AddDay, {1999, 5, 1, 9, 0, AM}},
    };
    for (const auto& r : rows) {
        SteppedRecord s = At(r.from);
        StepTime(s, r.step);
        EXPECT_EQ(Tuple(s), Tuple(At(r.to)))
            << r.from.year << "-" << r.from.month << "-" << r.from.day << " " << r.from.hour << ":"
            << r.from.minute << " step " << static_cast<int>(r.step);
    }
}

TEST(TimeSteps, FirstMomentFromTheInputFields) {
    // 31 December 1999, 11:59 P.M., zone -5.5, 77 East 12, 28 South 36.
    SteppedRecord r = SteppedFromInput({"", "12", "31", "1999", "11", "59", "-5.5", "77", "12",
                                        "28", "36", "", false, true, true});
    EXPECT_EQ(Tuple(r), Tuple(At({1999, 12, 31, 11, 59, true})));
    EXPECT_FLOAT_EQ(r.UpdTZ, -5.5f);
    EXPECT_EQ(std::make_tuple(r.UpdLongDeg, r.UpdLongMin, r.UpdLatDeg, r.UpdLatMin, r.UpdWest,
                              r.UpdSouth),
              std::make_tuple(short(77), short(12), short(28), short(36), short(0), short(1)));
}
