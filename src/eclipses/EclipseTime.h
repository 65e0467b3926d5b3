// The times of an eclipse's elements.

#pragma once

#include <cmath>

#include "time/Mjd.h"

namespace zenivo {

/// The moment `hours` hours after the 0h that opens the day of the elements, as
/// mjd in the time scale of the hours.  `jd` is the Julian date of greatest
/// eclipse, `t0` the elements' reference hour.
inline double eclipseMoment(double jd, double t0, double hours) {
  return std::floor(jd - t0 / 24) + hours / 24 + 0.5 - kJdMinusMjd;
}

}  // namespace zenivo
