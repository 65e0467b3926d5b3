#include "commands/events/EclipseReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

#include "answers/common/Session.h"
#include "commands/events/Eclipses.h"
#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo::cli {
namespace {

/// Adds azimuths, and the rise and set of the body that fall into the eclipse.
template <class Body>
void addSky(EclipseReport& report, const PtPosition& observer) {
  Body body(observer);
  PtDateTime moment;
  setFromMjd(moment, mjdOfGreatestEclipse(report.eclipse));
  const double deltaT = getDeltaT(moment);
  const auto look = [&](double mjd) {
    body.computePosition(true, mjd, deltaT);
    return body.horizontal();
  };
  for (EclipseMoment& contact : report.contacts) {
    if (!drawEventAtMjd(contact.mjd)) continue;
    const PtPolar& place = look(contact.mjd);
    contact.azimuth = place.azimuth_;
    // Of an eclipse that does not come here the solvers leave it open.
    if (!report.reachesPlace) contact.elevation = place.elevation_;
  }
  if (!report.reachesPlace) return;
  const bool isSun = report.eclipse.isSolarEclipse();
  const double first = report.contacts.front().mjd, last = report.contacts.back().mjd;
  const auto add = [&](std::string_view text, double mjd) {
    if (!drawEventAtMjd(mjd) || mjd < first || mjd > last) return;
    const PtPolar& place = look(mjd);
    report.horizon.push_back({"", text, mjd, place.azimuth_, place.elevation_});
  };
  constexpr double kQuarterDay = 0.25;  // no eclipse is longer than half a day
  const ephemeris::RiseSet limits =
      body.riseSet(ephemeris::EventKind::riseSet, first - kQuarterDay, deltaT);
  add(isSun ? "Sunrise" : "Moonrise", limits.rise);
  add(isSun ? "Sunset" : "Moonset", limits.set);
}

void fillSolar(EclipseReport& report, const PtPosition& observer) {
  const EclipseRow& row = report.eclipse;
  const auto seen = calculateSunEclipseTimes(observer, elementVector(*row.solarEclipse, row.mjd));
  const bool isTotal = seen.magnitude >= 1;
  report.localType = seen.type;
  report.reachesPlace = drawEventAtMjd(seen.mjdC1);
  report.magnitude = seen.magnitude;
  report.obscuration = seen.obscuration;
  report.contacts = {
      {"C1", "Partial eclipse begins", seen.mjdC1, 0, seen.elevationC1},
      {"C2", isTotal ? "Totality begins" : "Annularity begins", seen.mjdC2, 0, seen.elevationC2},
      {"max", "Greatest eclipse", seen.mjdMax, 0, seen.elevationMax},
      {"C3", isTotal ? "Totality ends" : "Annularity ends", seen.mjdC3, 0, seen.elevationC3},
      {"C4", "Partial eclipse ends", seen.mjdC4, 0, seen.elevationC4}};
  addSky<ephemeris::PtSun>(report, observer);
}

void fillLunar(EclipseReport& report, const PtPosition& observer) {
  const EclipseRow& row = report.eclipse;
  const auto seen = calculateMoonEclipseTimes(observer, elementVector(*row.lunarEclipse, row.mjd));
  report.localType = seen.type;
  report.reachesPlace = drawEventAtMjd(seen.mjdP1);
  report.umbralMagnitude = seen.umbralMagnitude;
  report.penumbralMagnitude = seen.penumbralMagnitude;
  report.contacts = {{"P1", "Penumbral eclipse begins", seen.mjdP1, 0, seen.elevationP1},
                     {"U1", "Partial eclipse begins", seen.mjdU1, 0, seen.elevationU1},
                     {"U2", "Totality begins", seen.mjdU2, 0, seen.elevationU2},
                     {"mid", "Greatest eclipse", seen.mjdMid, 0, seen.elevationMid},
                     {"U3", "Totality ends", seen.mjdU3, 0, seen.elevationU3},
                     {"U4", "Partial eclipse ends", seen.mjdU4, 0, seen.elevationU4},
                     {"P4", "Penumbral eclipse ends", seen.mjdP4, 0, seen.elevationP4}};
  addSky<ephemeris::PtMoon>(report, observer);
}

}  // namespace

double EclipseReport::mjdOfEnd() const {
  const auto last = std::find_if(contacts.rbegin(), contacts.rend(),
                                 [](const EclipseMoment& c) { return drawEventAtMjd(c.mjd); });
  return last == contacts.rend() ? kAlwaysBelow : last->mjd;
}

EclipseReport reportEclipse(const ZVLocation& location, const EclipseRow& eclipse) {
  EclipseReport report;
  report.eclipse = eclipse;
  const PtPosition observer = location.getPtPosition();
  if (eclipse.isSolarEclipse() && eclipse.solarEclipse) {
    fillSolar(report, observer);
  } else if (!eclipse.isSolarEclipse() && eclipse.lunarEclipse) {
    fillLunar(report, observer);
  } else {
    throw std::runtime_error(fmt::format("the catalogue lacks the elements of {}", eclipse.name));
  }
  return report;
}

}  // namespace zenivo::cli
