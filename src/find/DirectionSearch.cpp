#include "find/DirectionSearch.h"

#include <cmath>

#include "engine/MoonPhase.h"
#include "engine/PtMoon.h"
#include "find/AzimuthSolver.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::unique_ptr<ephemeris::PtPlanet> makeBody(FindBody body, const PtPosition& observer) {
  if (body == FindBody::sun) return std::make_unique<ephemeris::PtSun>(observer);
  return std::make_unique<ephemeris::PtMoon>(observer);
}

/// The mjd of the whole minute nearest to that of the record.
double nearestMinute(PtDateTime record) {
  record.minutes = std::trunc(record.minutes + 0.5);
  return getMjd(record);
}

PtDateTime recordOf(double mjd) {
  PtDateTime record;
  setFromMjd(record, mjd);
  return record;
}

}  // namespace

FindBodies::FindBodies(FindBody body, const PtPosition& observer)
    : body_(makeBody(body, observer)), kind_(body), sun_(observer) {}

void FindBodies::evaluate(double mjd, double deltaT) {
  mjd_ = mjd;
  deltaT_ = deltaT;
  body_->computePosition(true, mjd, deltaT);
}

ZVFindResultBodyAtAzimuth FindBodies::result(Date date) {
  ZVFindResultBodyAtAzimuth result;
  result.date = date;
  result.azimuth = static_cast<float>(body_->horizontal().azimuth_);
  result.elevation = static_cast<float>(body_->horizontal().elevation_);
  if (kind_ == FindBody::moon) fillMoonFields(result);
  return result;
}

void FindBodies::fillMoonFields(ZVFindResultBodyAtAzimuth& result) {
  const auto& moon = static_cast<const ephemeris::PtMoon&>(*body_);
  sun_.computePosition(true, mjd_, deltaT_);
  const MoonPhase phase = moon.moonPhaseGeometry(
      moon.ecliptic(), moon.equatorial(), sun_.ecliptic(), sun_.equatorial(), moon.hourAngle());
  result.phase = static_cast<float>(phase.phase_);
  result.waxing = phase.waxing_;
  result.zenithAngle = static_cast<float>(adjustedZenithAngle(phase));
  result.sunElevation = static_cast<float>(sun_.horizontal().elevation_);
}

AzimuthSearch::AzimuthSearch(FindBody body, const PtPosition& observer, float azimuth,
                             double deltaT)
    : bodies_(body, observer), azimuth_(azimuth), deltaT_(deltaT) {}

std::optional<ZVFindResultBodyAtAzimuth> AzimuthSearch::onDay(double day) {
  // The fast series is off by minutes of arc and the moment is rounded to the
  // minute, in which an azimuth runs by a quarter of a degree and more.
  constexpr double kTolerance = 0.495F;
  constexpr double kTropics = 23.0;
  const double azimuth = static_cast<double>(azimuth_);
  const PtDateTime solved = recordOf(mjdForAzimuth(bodies_.body(), azimuth, day, deltaT_));
  Date date = dateWithPtDateTime(solved, true);
  bodies_.evaluate(nearestMinute(solved), deltaT_);
  double miss = azimuthMiss(bodies_.body(), azimuth);

  // In the tropics a body can pass an azimuth twice a day, and the solver may have
  // settled on the passage below the horizon.
  const bool mayPassTwice = std::abs(bodies_.body().getPosition().latitude()) <= kTropics;
  const bool down = bodies_.body().horizontal().elevation_ < 0.0;
  if (miss >= kTolerance || (down && mayPassTwice)) {
    const double scanned = scanMjdForAzimuth(bodies_.body(), azimuth, day, deltaT_);
    if (scanned == kNoAzimuthMoment) return std::nullopt;
    date = dateFromModifiedJulianDay(scanned, true);
    bodies_.evaluate(scanned, deltaT_);
    miss = azimuthMiss(bodies_.body(), azimuth);
  }
  if (miss >= kTolerance) return std::nullopt;
  return bodies_.result(date);
}

AzimuthElevationSearch::AzimuthElevationSearch(FindBody body, const PtPosition& observer,
                                               float azimuth, float azimuthError, float elevation,
                                               float elevationError, double deltaT)
    : bodies_(body, observer),
      azimuth_(azimuth),
      azimuthError_(azimuthError),
      elevation_(elevation),
      elevationError_(elevationError),
      deltaT_(deltaT) {}

std::optional<ZVFindResultBodyAtAzimuth> AzimuthElevationSearch::onDay(double day) {
  const DirectionWindow window{.azimuth = static_cast<double>(azimuth_),
                               .azimuthError = static_cast<double>(azimuthError_),
                               .elevation = static_cast<double>(elevation_),
                               .elevationError = static_cast<double>(elevationError_)};
  const double moment = scanMjdForAzimuthElevation(bodies_.body(), window, day, deltaT_);
  if (moment == kNoDirectionMoment) return std::nullopt;
  const PtDateTime record = recordOf(moment);
  bodies_.evaluate(nearestMinute(record), deltaT_);
  return bodies_.result(dateWithPtDateTime(record, true));
}

}  // namespace zenivo
