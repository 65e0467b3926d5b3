#include <algorithm>
#include <cmath>

#include "find/AzimuthSolver.h"
#include "find/MinuteSkip.h"
#include "time/Mjd.h"

namespace zenivo {
namespace {

constexpr double kTropics = 23.0;  // degrees of latitude

/// An edge of the azimuth window and when the body passes it.
struct Edge {
  double mjd;
  double elevation;
  double miss;  ///< degrees between the body's azimuth and the edge
};

Edge edgeAt(ephemeris::PtPlanet& body, double azimuth, double day, double deltaT) {
  const double mjd = mjdForAzimuth(body, azimuth, day, deltaT);
  body.computePosition(false, mjd, deltaT);
  return {mjd, body.horizontal().elevation_, azimuthMiss(body, azimuth)};
}

/// The evaluated moment nearest to a direction, of those offered.
class NearestMoment {
 public:
  explicit NearestMoment(const DirectionWindow& window) : window_(window) {}

  void offer(double mjd, const PtPolar& place) {
    const double distance =
        angularDistance(place.azimuth_, place.elevation_, window_.azimuth, window_.elevation);
    if (distance < distance_) {
      distance_ = distance;
      mjd_ = mjd;
    }
  }
  double mjd() const { return mjd_; }

 private:
  const DirectionWindow& window_;
  double distance_ = 1000.0;
  double mjd_ = kNoDirectionMoment;
};

/// Both edges are passed above the horizon: all that counts lies between them.
double scanBetween(ephemeris::PtPlanet& body, const DirectionWindow& window, double from, double to,
                   double day, double deltaT) {
  NearestMoment nearest(window);
  const double last = (to - day) * kMinutesPerDay;
  for (double minute = (from - day) * kMinutesPerDay; minute <= last;) {
    const double mjd = day + minute / kMinutesPerDay;
    body.computePosition(false, mjd, deltaT);
    const double miss = std::abs(body.horizontal().elevation_ - window.elevation);
    int steps = 1;
    if (miss <= window.elevationError) {
      nearest.offer(mjd, body.horizontal());
    } else {
      steps = std::max(minutesForElevationChange(miss - window.elevationError), 1);
    }
    // One by one, as if no minute were left out: the sums round alike.
    for (; steps > 0; --steps) minute += 1.0;
  }
  return nearest.mjd();
}

double scanWholeDay(ephemeris::PtPlanet& body, const DirectionWindow& window, double day,
                    double deltaT) {
  NearestMoment nearest(window);
  bool found = false;
  for (int minute = 0; minute < kMinutesPerDay; ++minute) {
    const double mjd = day + minute / kMinutesPerDay;
    body.computePosition(false, mjd, deltaT);
    const PtPolar& place = body.horizontal();
    const double azimuthGap = azimuthMiss(body, window.azimuth) - window.azimuthError;
    const double elevationGap =
        std::abs(angleDifference(place.elevation_, window.elevation)) - window.elevationError;
    if (azimuthGap <= 0.0 && elevationGap <= 0.0) {
      found = true;
      nearest.offer(mjd, place);
      continue;
    }
    if (found) break;
    const int skip = std::max(minutesForAzimuthChange(azimuthGap, place.elevation_),
                              minutesForElevationChange(elevationGap));
    minute += std::max(skip - 1, 0);
  }
  return nearest.mjd();
}

}  // namespace

double scanMjdForAzimuthElevation(ephemeris::PtPlanet& body, const DirectionWindow& given,
                                  double day, double deltaT) {
  constexpr double kLongestWalk = 0.25;  // days
  constexpr double kTrustedMiss = 1.0;   // degrees
  DirectionWindow window = given;
  if (window.elevationError == 0.0) window.elevationError = 0.1;
  double left = window.azimuth - window.azimuthError;
  double right = window.azimuth + window.azimuthError;
  if (left < 0.0) left += 360.0;
  if (right >= 360.0) right -= 360.0;
  const Edge first = edgeAt(body, left, day, deltaT);
  const Edge second = edgeAt(body, right, day, deltaT);
  if (first.elevation < 0.0 && second.elevation < 0.0 &&
      std::abs(body.getPosition().latitude()) > kTropics) {
    return kNoDirectionMoment;
  }
  const bool bothUp = first.elevation >= 0.0 && second.elevation >= 0.0;
  if (bothUp && std::abs(first.mjd - second.mjd) < kLongestWalk && first.miss < kTrustedMiss &&
      second.miss < kTrustedMiss) {
    return scanBetween(body, window, std::min(first.mjd, second.mjd),
                       std::max(first.mjd, second.mjd), day, deltaT);
  }
  return scanWholeDay(body, window, day, deltaT);
}

}  // namespace zenivo
