#include "eclipses/LocalEclipse.h"

#include <algorithm>

#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

/// Adds azimuths, and the rise and set of the body that fall into the eclipse.
template <class Body>
void addSky(LocalEclipse& eclipse, const PtPosition& observer, double mjdOfGreatest) {
  Body body(observer);
  PtDateTime moment;
  setFromMjd(moment, mjdOfGreatest);
  const double deltaT = getDeltaT(moment);
  const auto look = [&](double mjd) {
    body.computePosition(true, mjd, deltaT);
    return body.horizontal();
  };
  for (EclipseMoment& contact : eclipse.contacts) {
    if (!drawEventAtMjd(contact.mjd)) continue;
    const PtPolar& place = look(contact.mjd);
    contact.azimuth = place.azimuth_;
    // Of an eclipse that does not come here the solvers leave it open.
    if (!eclipse.reachesPlace) contact.elevation = place.elevation_;
  }
  if (!eclipse.reachesPlace) return;
  const double first = eclipse.contacts.front().mjd, last = eclipse.contacts.back().mjd;
  const auto add = [&](std::string_view key, double mjd) {
    if (!drawEventAtMjd(mjd) || mjd < first || mjd > last) return;
    const PtPolar& place = look(mjd);
    eclipse.horizon.push_back({key, mjd, place.azimuth_, place.elevation_});
  };
  constexpr double kQuarterDay = 0.25;  // no eclipse is longer than half a day
  const ephemeris::RiseSet limits =
      body.riseSet(ephemeris::EventKind::riseSet, first - kQuarterDay, deltaT);
  add("rise", limits.rise);
  add("set", limits.set);
}

LocalEclipse solarEclipse(const PtPosition& observer, const EclipseRow& row) {
  const auto seen = calculateSunEclipseTimes(observer, elementVector(*row.solarEclipse, row.mjd));
  LocalEclipse eclipse;
  eclipse.type = seen.type;
  eclipse.reachesPlace = drawEventAtMjd(seen.mjdC1);
  eclipse.magnitude = seen.magnitude;
  eclipse.obscuration = seen.obscuration;
  eclipse.contacts = {{"C1", seen.mjdC1, 0, seen.elevationC1},
                      {"C2", seen.mjdC2, 0, seen.elevationC2},
                      {"max", seen.mjdMax, 0, seen.elevationMax},
                      {"C3", seen.mjdC3, 0, seen.elevationC3},
                      {"C4", seen.mjdC4, 0, seen.elevationC4}};
  addSky<ephemeris::PtSun>(eclipse, observer, mjdOfGreatestEclipse(row));
  return eclipse;
}

LocalEclipse lunarEclipse(const PtPosition& observer, const EclipseRow& row) {
  const auto seen = calculateMoonEclipseTimes(observer, elementVector(*row.lunarEclipse, row.mjd));
  LocalEclipse eclipse;
  eclipse.type = seen.type;
  eclipse.reachesPlace = drawEventAtMjd(seen.mjdP1);
  eclipse.umbralMagnitude = seen.umbralMagnitude;
  eclipse.penumbralMagnitude = seen.penumbralMagnitude;
  eclipse.contacts = {
      {"P1", seen.mjdP1, 0, seen.elevationP1}, {"U1", seen.mjdU1, 0, seen.elevationU1},
      {"U2", seen.mjdU2, 0, seen.elevationU2}, {"mid", seen.mjdMid, 0, seen.elevationMid},
      {"U3", seen.mjdU3, 0, seen.elevationU3}, {"U4", seen.mjdU4, 0, seen.elevationU4},
      {"P4", seen.mjdP4, 0, seen.elevationP4}};
  addSky<ephemeris::PtMoon>(eclipse, observer, mjdOfGreatestEclipse(row));
  return eclipse;
}

}  // namespace

double LocalEclipse::mjdOf(std::string_view key) const {
  const auto found = std::ranges::find(contacts, key, &EclipseMoment::key);
  return found == contacts.end() ? kAlwaysBelow : found->mjd;
}

double LocalEclipse::mjdOfEnd() const {
  const auto last = std::find_if(contacts.rbegin(), contacts.rend(),
                                 [](const EclipseMoment& c) { return drawEventAtMjd(c.mjd); });
  return last == contacts.rend() ? kAlwaysBelow : last->mjd;
}

std::optional<LocalEclipse> localEclipse(const PtPosition& observer, const EclipseRow& eclipse) {
  if (eclipse.isSolarEclipse() && eclipse.solarEclipse) return solarEclipse(observer, eclipse);
  if (!eclipse.isSolarEclipse() && eclipse.lunarEclipse) return lunarEclipse(observer, eclipse);
  return std::nullopt;
}

double mjdOfGreatestEclipse(const EclipseRow& eclipse) {
  const double deltaT = eclipse.solarEclipse   ? eclipse.solarEclipse->deltaT
                        : eclipse.lunarEclipse ? eclipse.lunarEclipse->i2
                                               : 0;
  return eclipse.mjd - kJdMinusMjd - deltaT / kSecondsPerDay;
}

}  // namespace zenivo
