// The wheel's time steps: the stepped moment moved forward or back by a day,
// an hour or a minute on the 12-hour clock, with the carries into the day,
// month and year. February has 29 days in every year divisible by 4.
#pragma once

#include "chart/Chart.h"
#include "chart/InputFields.h"

namespace kal {

enum class TimeStep { AddDay, SubDay, AddHour, SubHour, AddMinute, SubMinute };

// The first stepped moment: the natal input window's fields.
SteppedRecord SteppedFromInput(const InputFields& in);

// Days in a month of the stepped calendar (no century rule).
int MonthLength(int month, int year);

void StepTime(SteppedRecord& r, TimeStep step);

} // namespace kal
