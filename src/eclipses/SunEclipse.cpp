#include "eclipses/SunEclipse.h"

#include <algorithm>
#include <cmath>

#include "eclipses/EclipseHorizon.h"
#include "eclipses/EclipseTime.h"
#include "engine/Angles.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

enum class SolarContact { C1, C2, Max, C3, C4 };

// The moment `t` hours from t0, with the half second that makes whole seconds of
// it by truncation.
double momentOf(const SolarElements& elements, double t) {
  const double jd = elements[solar_element::mjd];
  const double t0 = elements[solar_element::t0];
  const double deltaT = elements[solar_element::deltaT];
  return eclipseMoment(jd, t0, t0 + t + (deltaT - 0.5) / -3600);
}

// The type that remains of `type` when `isUp` tells whether the Sun is above the
// horizon at a contact.
template <class IsUp>
std::int32_t typeAboveHorizon(std::int32_t type, IsUp isUp) {
  if (type == 0) return 0;
  if (type == 1)
    return isUp(SolarContact::Max) || isUp(SolarContact::C1) || isUp(SolarContact::C4) ? 1 : 0;
  if (isUp(SolarContact::Max) || isUp(SolarContact::C2) || isUp(SolarContact::C3)) return type;
  const bool begins = isUp(SolarContact::C1);
  const bool ends = isUp(SolarContact::C4);
  if (begins && ends) return type;
  return begins || ends ? 1 : 0;
}

// The share of the disk that a Moon of another size covers across its edge.
double coveredArea(const Circumstance& mid) {
  const double L1 = mid.L1;
  const double L2 = mid.L2;
  const double m = mid.m;
  // The disks' intersection in angles seen from either centre; rounding may push
  // a cosine past 1 where the disks only touch.
  const auto angle = [](double cosine) { return std::acos(std::clamp(cosine, -1.0, 1.0)); };
  const double c = angle((L1 * L1 + L2 * L2 - 2 * m * m) / (L1 * L1 - L2 * L2));
  const double b = angle((L1 * L2 + m * m) / m / (L1 + L2));
  const double a = kPi - b - c;
  return (mid.ratio * mid.ratio * a + b - mid.ratio * std::sin(c)) / kPi;
}

double reportedMagnitude(const Circumstance& mid) {
  return mid.type == 1 ? mid.magnitude : mid.ratio;
}

// Hours from t0 to a moment that momentOf gives.
double hoursAt(const SolarElements& elements, double mjd) {
  return (mjd - momentOf(elements, 0)) * 24;
}

}  // namespace

double obscurationAtGreatest(const Circumstance& mid) {
  if (mid.type == 0) return 0;
  if (reportedMagnitude(mid) >= 1) return 1;
  if (mid.type == 2) return mid.ratio * mid.ratio;
  return std::floor(1000 * coveredArea(mid) + 0.5) / 1000;
}

SunEclipseTimesResult calculateSunEclipseTimes(const PtPosition& observer,
                                               const SolarElements& elements) {
  const SolarCircumstances seen = solarCircumstances(elements, EclipseObserver(observer));
  const bool isCentral = seen.mid.type >= 2;
  SunEclipseTimesResult result;
  result.mjdMax = momentOf(elements, seen.mid.t);
  if (seen.mid.type == 0) return result;

  result.mjdC1 = momentOf(elements, seen.c1.t);
  result.mjdC4 = momentOf(elements, seen.c4.t);
  result.magnitude = reportedMagnitude(seen.mid);
  result.obscuration = obscurationAtGreatest(seen.mid);

  EclipsedBody<ephemeris::PtSun> sun(observer, result.mjdC1);
  result.elevationC1 = sun.elevation(result.mjdC1);
  result.elevationMax = sun.elevation(result.mjdMax);
  result.elevationC4 = sun.elevation(result.mjdC4);
  if (isCentral) {
    result.mjdC2 = momentOf(elements, seen.c2.t);
    result.mjdC3 = momentOf(elements, seen.c3.t);
    result.elevationC2 = sun.elevation(result.mjdC2);
    result.elevationC3 = sun.elevation(result.mjdC3);
  }
  const double elevations[] = {result.elevationC1, result.elevationC2, result.elevationMax,
                               result.elevationC3, result.elevationC4};
  result.type = typeAboveHorizon(seen.mid.type, [&](SolarContact contact) {
    return elevations[static_cast<int>(contact)] >= 0;
  });
  return result;
}

SunPhase sunPhaseAt(const PtPosition& observer, const SolarElements& elements, double mjd) {
  const Circumstance now =
      circumstanceAt(elements, EclipseObserver(observer), hoursAt(elements, mjd));
  if (now.type == 0) return {};
  const double covered = now.type == 1   ? std::min(coveredArea(now), std::nextafter(1.0, 0.0))
                         : now.type == 2 ? now.ratio * now.ratio
                                         : 1;
  return {reportedMagnitude(now), covered};
}

std::int32_t sunEclipseType(const PtPosition& observer, const SolarElements& elements) {
  const SolarCircumstances seen = solarCircumstances(elements, EclipseObserver(observer));
  const Circumstance* contacts[] = {&seen.c1, &seen.c2, &seen.mid, &seen.c3, &seen.c4};
  std::optional<EclipsedBody<ephemeris::PtSun>> sun;
  return typeAboveHorizon(seen.mid.type, [&](SolarContact contact) {
    const Circumstance& at = *contacts[static_cast<int>(contact)];
    if (const auto isUp = isUpForCertain(at.alt)) return *isUp;
    if (!sun) sun.emplace(observer, momentOf(elements, seen.c1.t));
    return sun->elevation(momentOf(elements, at.t)) >= 0;
  });
}

}  // namespace zenivo
