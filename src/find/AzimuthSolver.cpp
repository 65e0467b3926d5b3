#include "find/AzimuthSolver.h"

#include <algorithm>
#include <cmath>

#include "find/MinuteSkip.h"
#include "time/Mjd.h"

namespace zenivo {
namespace {

/// The hour angle that belongs to an azimuth, for one observer.
///
/// With A the azimuth, f the latitude, d the declination and H the hour angle,
/// tan A (sin f cos H - tan d cos f) = sin H.  Squared, it is a quadratic in
/// cos H whose root is chosen by the side of the pole that the azimuth is on.
class HourAngleOfAzimuth {
 public:
  HourAngleOfAzimuth(double azimuth, double latitude)
      : east_(azimuth < 180.0),
        tanA_(std::tan(azimuth * kDegree)),
        cosLatitude_(std::cos(latitude * kDegree)),
        p_(tanA_ * std::sin(latitude * kDegree)) {
    const double A = azimuth * kDegree;
    primeVertical_ = A == kPi / 2.0 || A == 3.0 * kPi / 2.0;
    const bool towardSouth = azimuth > 90.0 && azimuth < 270.0;
    sign_ = (latitude >= 0.0) == towardSouth ? 1.0 : -1.0;
  }

  /// Degrees, negative to the east.
  double at(double declination) const {
    const double angle = std::acos(std::clamp(cosine(declination), -1.0, 1.0)) / kDegree;
    return east_ ? -angle : angle;
  }

 private:
  double cosine(double declination) const {
    const double q = tanA_ * std::tan(declination) * cosLatitude_;
    const double onePlusP2 = 1.0 + p_ * p_;
    const double D = onePlusP2 - q * q;
    if (!primeVertical_ && D >= 0.0) return (sign_ * std::sqrt(D) + p_ * q) / onePlusP2;
    // On the equator p vanishes and with it all but the sign of the answer.
    return p_ != 0.0 ? q / p_ : std::copysign(1.0, q);
  }

  bool east_;
  bool primeVertical_ = false;
  double tanA_;
  double cosLatitude_;
  double p_;
  double sign_ = 1.0;
};

}  // namespace

double mjdForAzimuth(ephemeris::PtPlanet& body, double azimuth, double day, double deltaT) {
  constexpr int kRounds = 10;
  constexpr double kCloseEnough = 0.005;  // hours
  const PtPosition& observer = body.getPosition();
  const HourAngleOfAzimuth wanted(azimuth, observer.latitude());
  double t = 12.0 - observer.longitude() / 15.0;
  for (int round = 0; round < kRounds; ++round) {
    const double mjd = day + t / 24.0;
    const Vector3D place = body.equatorialPosition(false, mjd, deltaT);
    const double siderealTime =
        observer.longitude() * kDegree + body.apparentSiderealTime(mjd) * kRadiansPerHour;
    const double H = std::fmod(siderealTime - place.phi(), kTwoPi) / kDegree;
    double next = t + (wanted.at(place.theta()) - H) / 15.0;
    while (next < 0.0) next += 24.0;
    while (next > 24.0) next -= 24.0;
    const double change = std::abs(next - t);
    t = next;
    if (change <= kCloseEnough) break;
  }
  return day + t / 24.0;
}

double scanMjdForAzimuth(ephemeris::PtPlanet& body, double azimuth, double day, double deltaT) {
  constexpr double kWindow = 0.25;
  int best = -1;
  double bestElevation = -99.0;
  double bestDistance = 1000.0;
  bool inside = false;
  for (int minute = 0; minute < kMinutesPerDay; ++minute) {
    body.computePosition(false, day + minute / kMinutesPerDay, deltaT);
    const double elevation = body.horizontal().elevation_;
    const double distance = azimuthMiss(body, azimuth);
    if (distance < kWindow) {
      inside = true;
      const bool risen = bestElevation < 0.0 && elevation >= 0.0;
      const bool sameSide = (bestElevation < 0.0) == (elevation < 0.0);
      if (risen || (sameSide && distance < bestDistance)) {
        best = minute;
        bestElevation = elevation;
        bestDistance = distance;
      }
      continue;
    }
    // The first passage above the horizon is final; after one below it, a later
    // one may still be seen.
    if (inside && bestElevation >= 0.0) break;
    inside = false;
    const int skip = minutesForAzimuthChange(distance - kWindow, elevation);
    minute += std::max(skip - 1, 0);
  }
  return best < 0 ? kNoAzimuthMoment : day + best / kMinutesPerDay;
}
}  // namespace zenivo
