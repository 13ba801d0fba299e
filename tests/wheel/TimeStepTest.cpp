// The wheel's time steps on the 12-hour clock, with their carries into the
// day, month and year, and the first stepped moment from the input fields.
#include <gtest/gtest.h>

#include <tuple>

#include "wheel/TimeStep.h"

using namespace kal;

namespace {

SteppedRecord At(int year, int month, int day, float hour, float minute, bool pm) {
    SteppedRecord r;
    r.UpdYear = static_cast<short>(year);
    r.UpdMonth = static_cast<short>(month);
    r.UpdDay = static_cast<short>(day);
    r.UpdHour = hour;
    r.UpdMinute = minute;
    r.UpdPM = pm ? 1 : 0;
    return r;
}

auto Moment(const SteppedRecord& r) {
    return std::make_tuple(r.UpdYear, r.UpdMonth, r.UpdDay, r.UpdHour, r.UpdMinute, r.UpdPM);
}

SteppedRecord Stepped(SteppedRecord r, TimeStep s) {
    StepTime(r, s);
    return r;
}

} // namespace

TEST(TimeSteps, MinutesCarryThroughTheClockAndTheCalendar) {
    // 11:59 P.M. on 31 December and a minute: 12:00 A.M. on 1 January.
    EXPECT_EQ(Moment(Stepped(At(1999, 12, 31, 11, 59, true), TimeStep::AddMinute)),
              Moment(At(2000, 1, 1, 12, 0, false)));
    EXPECT_EQ(Moment(Stepped(At(2000, 1, 1, 12, 0, false), TimeStep::SubMinute)),
              Moment(At(1999, 12, 31, 11, 59, true)));
    // 11:59 A.M. and a minute: noon, P.M., the same day.
    EXPECT_EQ(Moment(Stepped(At(2001, 6, 5, 11, 59, false), TimeStep::AddMinute)),
              Moment(At(2001, 6, 5, 12, 0, true)));
    EXPECT_EQ(Moment(Stepped(At(2001, 6, 5, 3, 30, true), TimeStep::AddMinute)),
              Moment(At(2001, 6, 5, 3, 31, true)));
}

TEST(TimeSteps, HoursAcrossTwelve) {
    // 12:30 A.M. minus an hour: 11:30 P.M. of the day before.
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 12, 30, false), TimeStep::SubHour)),
              Moment(At(2001, 2, 28, 11, 30, true)));
    // 12:30 P.M. minus an hour: 11:30 A.M. of the same day.
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 12, 30, true), TimeStep::SubHour)),
              Moment(At(2001, 3, 1, 11, 30, false)));
    // 1 P.M. minus an hour is noon; 12 P.M. plus an hour is 1 P.M.
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 1, 0, true), TimeStep::SubHour)),
              Moment(At(2001, 3, 1, 12, 0, true)));
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 12, 0, true), TimeStep::AddHour)),
              Moment(At(2001, 3, 1, 1, 0, true)));
    // 11:15 P.M. plus an hour: 12:15 A.M. of the next day.
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 11, 15, true), TimeStep::AddHour)),
              Moment(At(2001, 3, 2, 12, 15, false)));
    // A fractional hour keeps its fraction.
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 12.5f, 0, false), TimeStep::SubHour)),
              Moment(At(2001, 2, 28, 11.5f, 0, true)));
}

TEST(TimeSteps, DaysAndTheFebruaryOfEveryFourthYear) {
    EXPECT_EQ(Moment(Stepped(At(1996, 2, 28, 9, 0, false), TimeStep::AddDay)),
              Moment(At(1996, 2, 29, 9, 0, false)));
    // No century rule: 1900 has a 29 February too.
    EXPECT_EQ(Moment(Stepped(At(1900, 2, 28, 9, 0, false), TimeStep::AddDay)),
              Moment(At(1900, 2, 29, 9, 0, false)));
    EXPECT_EQ(Moment(Stepped(At(1900, 2, 29, 9, 0, false), TimeStep::AddDay)),
              Moment(At(1900, 3, 1, 9, 0, false)));
    EXPECT_EQ(Moment(Stepped(At(2001, 3, 1, 9, 0, false), TimeStep::SubDay)),
              Moment(At(2001, 2, 28, 9, 0, false)));
    EXPECT_EQ(Moment(Stepped(At(2000, 1, 1, 9, 0, false), TimeStep::SubDay)),
              Moment(At(1999, 12, 31, 9, 0, false)));
    EXPECT_EQ(Moment(Stepped(At(1999, 4, 30, 9, 0, false), TimeStep::AddDay)),
              Moment(At(1999, 5, 1, 9, 0, false)));
}

TEST(TimeSteps, FirstMomentFromTheInputFields) {
    InputFields in;
    in.txtMonth = "12";
    in.txtDay = "31";
    in.txtYear = "1999";
    in.txtBirthHour = "11";
    in.txtBirthMinute = "59";
    in.txtTZ = "-5.5";
    in.txtLongDeg = "77";
    in.txtLongMin = "12";
    in.txtLatDeg = "28";
    in.txtLatMin = "36";
    in.optAM = false;
    in.optEast = true;
    in.optSouth = true;
    SteppedRecord r = SteppedFromInput(in);
    EXPECT_EQ(Moment(r), Moment(At(1999, 12, 31, 11, 59, true)));
    EXPECT_FLOAT_EQ(r.UpdTZ, -5.5f);
    EXPECT_EQ(std::make_tuple(r.UpdLongDeg, r.UpdLongMin, r.UpdLatDeg, r.UpdLatMin, r.UpdWest,
                              r.UpdSouth),
              std::make_tuple(short(77), short(12), short(28), short(36), short(0), short(1)));
}
