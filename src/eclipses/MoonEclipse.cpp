#include "eclipses/MoonEclipse.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "eclipses/EclipseObserver.h"
#include "eclipses/EclipseTime.h"
#include "engine/Angles.h"
#include "engine/PtMoon.h"

namespace zenivo {
namespace {

constexpr double kSiderealPerSolarHour = 1.00273791;
constexpr double kHorizonRefraction = 0.5667;  // degrees

// In the order of the element vector, which is that of time.
enum Contact : std::size_t { P1, U1, U2, Mid, U3, U4, P4, kContactCount };

enum class Status { visible, nonexistent, belowHorizon };

struct Instant {
  Status status = Status::nonexistent;
  double altitude = 0;  // radians, topocentric, without refraction
};

using Instants = std::array<Instant, kContactCount>;

double hoursOf(const LunarElements& elements, Contact contact) {
  return elements[lunar_element::contacts + contact];
}

// To the second, as contacts are published.  The half minute that a list adds to the
// reference hour, to have it on a whole minute, would be an error here.
double momentOf(const LunarElements& elements, Contact contact) {
  const double jd = elements[lunar_element::mjd];
  const double t0 = elements[lunar_element::t0];
  const double deltaT = elements[lunar_element::deltaT];
  return eclipseMoment(jd, t0, t0 + hoursOf(elements, contact) - deltaT / 3600);
}

// The Moon's altitude `t` hours from t0 by the catalogue's polynomials.
double altitudeAt(const LunarElements& n, const EclipseObserver& observer, double t) {
  using namespace lunar_element;
  const double ut = t - n[deltaT] / 3600;
  const double siderealDegrees = (n[siderealTime] + ut * kSiderealPerSolarHour) * 15;
  const double ra = n[rightAscension] + t * (n[rightAscension + 1] + t * n[rightAscension + 2]);
  const double h = (siderealDegrees - ra) * kDegree - observer.longitude;
  const double dec = (n[declination] + t * n[declination + 1]) * kDegree;
  const double sine = std::sin(observer.latitude) * std::sin(dec) +
                      std::cos(observer.latitude) * std::cos(dec) * std::cos(h);
  const double geocentric = std::asin(std::clamp(sine, -1.0, 1.0));
  return geocentric - std::asin(std::cos(geocentric) * std::sin(n[parallax] * kDegree));
}

bool happens(Contact contact, double kind) {
  if (contact == U2 || contact == U3) return kind < 2;
  if (contact == U1 || contact == U4) return kind < 3;
  return true;
}

Instants instantsOf(const LunarElements& elements, const EclipseObserver& observer) {
  const double limit = (elements[lunar_element::semiDiameter] - kHorizonRefraction) * kDegree;
  Instants instants;
  for (std::size_t i = P1; i < kContactCount; ++i) {
    const auto contact = static_cast<Contact>(i);
    if (!happens(contact, elements[lunar_element::kind])) continue;
    Instant& instant = instants[contact];
    instant.altitude = altitudeAt(elements, observer, hoursOf(elements, contact));
    const bool isVisible = instant.altitude >= limit;
    instant.status = isVisible ? Status::visible : Status::belowHorizon;
    if (isVisible) instant.altitude = std::max(instant.altitude, 0.0);
  }
  return instants;
}

bool anyVisible(const Instants& instants) {
  return std::any_of(instants.begin(), instants.end(),
                     [](const Instant& instant) { return instant.status == Status::visible; });
}

// The type that remains of an eclipse of this kind when `isUp` tells whether the
// Moon is above the horizon at a contact.
template <class IsUp>
std::int32_t typeAboveHorizon(double kind, IsUp isUp) {
  if (kind == 1 && (isUp(U2) || isUp(U3))) return 3;
  if (kind <= 2 && (isUp(U1) || isUp(U4))) return 2;
  return isUp(P1) || isUp(P4) ? 1 : 0;
}

}  // namespace

MoonEclipseTimesResult calculateMoonEclipseTimes(const PtPosition& observer,
                                                 const LunarElements& elements) {
  const Instants instants = instantsOf(elements, EclipseObserver(observer));
  MoonEclipseTimesResult result;
  result.mjdMid = momentOf(elements, Mid);
  if (!anyVisible(instants)) return result;

  result.umbralMagnitude = elements[lunar_element::umbralMagnitude];
  result.penumbralMagnitude = elements[lunar_element::penumbralMagnitude];
  struct Field {
    double* mjd;
    double* elevation;
  };
  const std::array<Field, kContactCount> fields{{{&result.mjdP1, &result.elevationP1},
                                                 {&result.mjdU1, &result.elevationU1},
                                                 {&result.mjdU2, &result.elevationU2},
                                                 {&result.mjdMid, &result.elevationMid},
                                                 {&result.mjdU3, &result.elevationU3},
                                                 {&result.mjdU4, &result.elevationU4},
                                                 {&result.mjdP4, &result.elevationP4}}};
  EclipsedBody<ephemeris::PtMoon> moon(observer, momentOf(elements, P1));
  for (std::size_t i = P1; i < kContactCount; ++i) {
    if (instants[i].status == Status::nonexistent) continue;
    *fields[i].mjd = momentOf(elements, static_cast<Contact>(i));
    *fields[i].elevation = moon.elevation(*fields[i].mjd);
  }
  result.type = typeAboveHorizon(elements[lunar_element::kind],
                                 [&](Contact contact) { return *fields[contact].elevation >= 0; });
  return result;
}

// With s the Moon's semi-diameter and x its least distance from the shadow's axis, a magnitude
// i there means a shadow of radius x + (2i - 1)s, which the Moon leaves at the distance
// x + 2is.  Moving by n an hour it gets there after t hours:
//
//   (x + 2is)^2 = x^2 + (nt)^2,  so  x = ((nt)^2 - (2is)^2) / (4is).
//
// The penumbra, which every eclipse has, gives x; then the distance at any hour is known, and
// each magnitude falls from its greatest by the growth of the distance over 2s.
MoonPhaseInShadow moonPhaseInShadowAt(const LunarElements& n, double mjd) {
  using namespace lunar_element;
  constexpr double kSunPerHour = 360 / (365.2422 * 24);  // which the shadow follows
  const double declination0 = n[declination] * kDegree;
  const double perHour =
      std::hypot(n[rightAscension + 1] * std::cos(declination0), n[declination + 1]) - kSunPerHour;
  const double halfLength = (hoursOf(n, P4) - hoursOf(n, P1)) / 2;
  const double way = perHour * halfLength;
  const double inside = 2 * n[penumbralMagnitude] * n[semiDiameter];
  const double least = std::max((way * way - inside * inside) / (2 * inside), 0.0);
  const double hours = (mjd - momentOf(n, Mid)) * 24;
  const double fall = (std::hypot(least, perHour * hours) - least) / (2 * n[semiDiameter]);
  return {n[umbralMagnitude] - fall, n[penumbralMagnitude] - fall};
}

std::int32_t moonEclipseType(const PtPosition& observer, const LunarElements& elements) {
  const Instants instants = instantsOf(elements, EclipseObserver(observer));
  if (!anyVisible(instants)) return 0;
  std::optional<EclipsedBody<ephemeris::PtMoon>> moon;
  return typeAboveHorizon(elements[lunar_element::kind], [&](Contact contact) {
    if (const auto isUp = isUpForCertain(instants[contact].altitude)) return *isUp;
    if (!moon) moon.emplace(observer, momentOf(elements, P1));
    return moon->elevation(momentOf(elements, contact)) >= 0;
  });
}

}  // namespace zenivo
