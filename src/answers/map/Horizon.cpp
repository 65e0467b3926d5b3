#include "answers/map/Horizon.h"

#include <cmath>

#include "engine/Angles.h"
#include "place/LocationUtils.h"

namespace zenivo {

// Over an Earth of 7/6 its radius R, which stands for the bent ray, an eye at height h sees
// the horizon sqrt(2 R' h) away and sqrt(2 h / R') below the level: their quotient is R'.
HorizonReport answer(const HorizonQuestion& question) {
  constexpr double kBentRadius = 6378137.0 * 7.0 / 6.0;  // metres
  HorizonReport report;
  if (!question.place.isAltitudeKnown()) return report;
  const double height = question.place.altitude + question.height + kEyeHeight;
  const std::optional<double> kilometres = LocationUtils::distanceToHorizon(height);
  if (!kilometres) return report;
  report.height = height;
  report.distance = *kilometres * 1000.0;
  report.dip = *report.distance / kBentRadius / kDegree;
  if (question.azimuth) {
    report.point = ZVLocation(LocationUtils::calculateDerivedPositionFromSource(
        question.place.coordinate, static_cast<float>(*report.distance),
        static_cast<float>(*question.azimuth)));
  }
  return report;
}

Json json(const HorizonReport& report) {
  return {{"height", orNull(report.height)},
          {"distance", orNull(report.distance)},
          {"dip", orNull(report.dip)},
          {"point", report.point ? pinJson(*report.point) : Json(nullptr)}};
}

}  // namespace zenivo
