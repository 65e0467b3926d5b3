// Yesterday, today and tomorrow of a place, as the meteor screens show them.

#pragma once

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "meteors/MeteorDayInfoData.h"

namespace zenivo {

/// The Sun and the Moon over one place: a scratch pad of one thread.
struct MeteorBodies {
  explicit MeteorBodies(const PtPosition& observer) : sun(observer), moon(observer) {}

  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
};

/// A step of the three-day window.
enum class DayShift { all = 0, left = 1, right = 2 };

class MeteorThreeDays {
 public:
  /// Computes the days around a date that the step brings in: all, or one where the others
  /// are there already.  Without bodies the days have their limits alone; without curves
  /// no points.
  void moveTo(Date date, const Calendar& calendar, MeteorBodies* bodies, DayShift shift,
              bool withCurves);

  const MeteorDays& days() const { return days_; }
  /// For the curves' rates.
  MeteorDayInfoData& day(DayIndex index) { return days_[index]; }

  /// Before it the night concerned is the one that began yesterday; 0 without a place.
  double threshold() const { return threshold_; }
  bool isLastNight(double mjd) const { return mjd < threshold_; }
  /// The day in whose evening the night begins that concerns a moment of today.
  const MeteorDayInfoData& evening(double mjd) const {
    return days_[isLastNight(mjd) ? Yesterday : Today];
  }

 private:
  MeteorDays days_;
  double threshold_ = 0;
};

}  // namespace zenivo
