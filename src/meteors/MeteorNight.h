// From when to when meteors are counted.

#pragma once

#include <vector>

#include "meteors/MeteorDayInfoData.h"

namespace zenivo {

/// When a body is below an altitude, from the moments it rises and sets through it, in
/// any order; sentinels among them are passed over.  Down from the start, it is so from
/// `from` on; down at the end, up to `to`.  None for a body that never crosses.
std::vector<MeteorGraphInterval> intervalsBelowAltitude(const std::vector<double>& rises,
                                                        const std::vector<double>& sets,
                                                        double from, double to);

/// A night's window.  Both 0: there is no night.
struct MjdRateWindow {
  double start = 0;
  double end = 0;

  bool isNight() const { return start < end; }  // before 1858 both are negative

  friend bool operator==(const MjdRateWindow&, const MjdRateWindow&) = default;
};

/// The night, from sunset to sunrise, that concerns a moment of Today: until its sunrise
/// the night that ends then, later the coming one.  It never reaches into daylight,
/// however sunset and sunrise lie to midnight.
///
/// In the polar day there is none.  In the polar night the window runs from middle to
/// middle of two days.  A night that has no beginning or no end within the three days
/// is cut at the middle of the first or last one.
MjdRateWindow calculateMjdRateStart(double forMjd, const MeteorDays& withInfo);

/// The moment at which a day passes on from the night that began the day before to the
/// one that begins on it: sunrise, or the middle of a day that has none.
double mjdPeakThresholdFor(const MeteorDayInfoData& day);

}  // namespace zenivo
