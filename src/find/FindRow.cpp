#include "find/FindRow.h"

#include <cmath>

#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "foundation/NumberFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::string numberText(double number) {
  return NumberFormatter{.minimumFractionDigits = 1, .maximumFractionDigits = 2}.stringFromNumber(
      number);
}

std::string heightText(double elevation, double pinsDistance, bool imperial) {
  constexpr double kFeetPerMetre = 3.28084;
  constexpr double kHighest = 9999.0;
  if (elevation < 0.0) return "--";
  const double height =
      std::tan(elevation * kDegree) * pinsDistance * (imperial ? kFeetPerMetre : 1.0);
  return height <= kHighest ? numberText(height) : ">9999";
}

FindRow rowOfMoment(const ZVFindResultBodyAtAzimuth& result, Date now) {
  FindRow row;
  row.weekday = weekdayAbbreviation(result.date);
  row.date = DateFormatter("%Y-%m-%d", cachedCalendar().timeZone()).stringFromDate(result.date);
  row.time = timeStringFromDate(result.date);
  row.elevation = numberText(double{result.elevation});
  row.isEnabled = result.date >= now;
  return row;
}

}  // namespace

FindRow azimuthRow(const ZVFindResultBodyAtAzimuth& result, double pinsDistance, bool imperial,
                   Date now) {
  FindRow row = rowOfMoment(result, now);
  row.apparentHeight = heightText(double{result.elevation}, pinsDistance, imperial);
  return row;
}

FindRow azimuthElevationRow(const ZVFindResultBodyAtAzimuth& result,
                            const std::function<double(double)>& shownAzimuth, Date now) {
  FindRow row = rowOfMoment(result, now);
  row.azimuth = numberText(shownAzimuth(double{result.azimuth}));
  return row;
}

}  // namespace zenivo
