#include "meteors/MeteorThreeDays.h"

#include <algorithm>

#include "meteors/MeteorMoment.h"
#include "meteors/MeteorNight.h"

namespace zenivo {

void MeteorThreeDays::moveTo(Date date, const Calendar& calendar, MeteorBodies* bodies,
                             DayShift shift, bool withCurves) {
  const auto compute = [&](DayIndex index) {
    const int offset = static_cast<int>(index) - static_cast<int>(Today);
    MeteorDayInfoData& day = days_[index];
    day = {};
    day.mjdStart = mjdAtLocalMidnight(date, offset, calendar);
    day.mjdEnd = mjdAtLocalMidnight(date, offset + 1, calendar);
    if (bodies == nullptr) return;
    calculateTwilightAndNightIntervals(day, bodies->sun, bodies->moon, calendar);
    if (withCurves) calculateMoonElevations(day, bodies->moon);
  };
  switch (shift) {
    case DayShift::all:
      for (const DayIndex index : {Yesterday, Today, Tomorrow}) compute(index);
      break;
    case DayShift::left:
      std::rotate(days_.begin(), days_.begin() + Tomorrow, days_.end());
      compute(Yesterday);
      break;
    case DayShift::right:
      std::rotate(days_.begin(), days_.begin() + Today, days_.end());
      compute(Tomorrow);
      break;
  }
  threshold_ = bodies != nullptr ? mjdPeakThresholdFor(days_[Today]) : 0.0;
}

}  // namespace zenivo
