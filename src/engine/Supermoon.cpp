#include "engine/Supermoon.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/Angles.h"
#include "engine/MoonApsides.h"
#include "time/DateEphemeris.h"

namespace zenivo {

bool isFullMoonDateASupermoonDay(Date date, double moonDistance, const Calendar& calendar) {
  constexpr double kAlwaysNear = 360000.0;     // kilometres
  constexpr double kNearAtPerigee = 361000.0;  // kilometres
  constexpr double kMostDaysToPerigee = 1.5;
  if (moonDistance < kAlwaysNear) return true;
  if (!(moonDistance < kNearAtPerigee)) return false;

  const double mjd = modifiedJulianDay(date);
  const std::vector<MoonDistance> apsides =
      apogeePerigeesForYear(yearValue(date, calendar), monthValue(date, calendar), calendar);
  return std::ranges::any_of(apsides, [&](const MoonDistance& apsis) {
    return apsis.type == MoonDistanceType::perigee &&
           std::abs(apsis.mjd - mjd) <= kMostDaysToPerigee;
  });
}

double moonPercentageFromMeanAngularDiameterAtDistance(double distance) {
  constexpr double kMoonRadius = 1738.0;             // kilometres
  constexpr double kMeanAngularDiameter = 0.517836;  // degrees
  const double diameter = 2.0 * std::atan(kMoonRadius / distance) / kDegree;
  return (diameter - kMeanAngularDiameter) / kMeanAngularDiameter;
}

}  // namespace zenivo
