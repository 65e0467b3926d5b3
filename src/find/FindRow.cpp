#include "find/FindRow.h"

#include <cmath>

#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "foundation/NumberFormatter.h"

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

FindRow rowOfMoment(const ZVFindResultBodyAtAzimuth& result, Date now, const Calendar& calendar) {
  const auto text = [&](const char* pattern) {
    return DateFormatter(pattern, calendar.timeZone()).stringFromDate(result.date);
  };
  FindRow row;
  row.weekday = text("%a");
  row.date = text("%Y-%m-%d");
  row.time = text("%H:%M");
  row.elevation = numberText(double{result.elevation});
  row.isEnabled = result.date >= now;
  return row;
}

}  // namespace

FindRow azimuthRow(const ZVFindResultBodyAtAzimuth& result, double pinsDistance, bool imperial,
                   Date now, const Calendar& calendar) {
  FindRow row = rowOfMoment(result, now, calendar);
  row.apparentHeight = heightText(double{result.elevation}, pinsDistance, imperial);
  return row;
}

FindRow azimuthElevationRow(const ZVFindResultBodyAtAzimuth& result,
                            const std::function<double(double)>& shownAzimuth, Date now,
                            const Calendar& calendar) {
  FindRow row = rowOfMoment(result, now, calendar);
  row.azimuth = numberText(shownAzimuth(double{result.azimuth}));
  return row;
}

}  // namespace zenivo
