#include "planner/DaySearch.h"

#include "engine/Supermoon.h"
#include "engine/Twilight.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtPlanet;
using ephemeris::RiseSet;

double azimuthAt(PtPlanet& body, double mjd, double deltaT) {
  if (!drawEventAtMjd(mjd)) return kNoAzimuth;
  body.computePosition(true, mjd, deltaT);
  return body.horizontal().azimuth_;
}

bool isSupermoon(ephemeris::PtMoon& moon, const PtMoonPhaseWithDate& phase,
                 const Calendar& calendar) {
  if (phase.phase != kFullMoon) return false;
  moon.computePosition(true, getMjd(phase.date), getDeltaT(phase.date));
  return isFullMoonDateASupermoonDay(dateWithPtDateTime(phase.date), moon.horizontal().distance_,
                                     calendar);
}

}  // namespace

void searchRiseTransitSet(CelestialBodyEvent& event, PtPlanet& body, const LocalDay& day) {
  const RiseSet riseSet = body.riseSet(EventKind::riseSet, day.mjdAt0, day.deltaT);
  event.date = day.date.timeIntervalSinceReferenceDate();
  event.setMjdRise(riseSet.rise);
  event.setMjdTransit(body.transit(day.mjdAt0, day.deltaT));
  event.setMjdSet(riseSet.set);
  event.riseAzimuth = azimuthAt(body, riseSet.rise, day.deltaT);
  event.setAzimuth = azimuthAt(body, riseSet.set, day.deltaT);
}

SunEvent sunEventOfDay(ephemeris::PtSun& sun, const LocalDay& day, const Calendar& calendar) {
  SunEvent event;
  const auto search = [&](EventKind kind) { return sun.riseSet(kind, day.mjdAt0, day.deltaT); };
  const auto twilight = [](const RiseSet& crossings) {
    return TwilightEvent(crossings.rise, crossings.set);
  };
  const auto eveningFirst = [](const RiseSet& crossings) {
    return TwilightEvent(crossings.set, crossings.rise);
  };
  event.civilTwilight = twilight(search(EventKind::civil));
  event.nauticalTwilight = twilight(search(EventKind::nautical));
  const AstronomicalTwilight astronomical = calculateAstronomicalTwilight(
      sun, day.mjdAt0, day.deltaT, dayValue(day.date, calendar), calendar);
  event.astronomicalTwilight = TwilightEvent(astronomical.start, astronomical.end);
  if (astronomical.end2 != kAlwaysBelow && astronomical.end2 != astronomical.end) {
    event.astronomicalTwilight2 = TwilightEvent(kAlwaysBelow, astronomical.end2);
  }
  event.blueHour = eveningFirst(search(EventKind::blueHour));
  event.goldenHour = eveningFirst(search(EventKind::goldenHour));
  searchRiseTransitSet(event, sun, day);
  return event;
}

MoonEvent moonEventOfDay(ephemeris::PtMoon& moon, const LocalDay& day,
                         const PtMoonPhaseWithDate* phase, const Calendar& calendar) {
  MoonEvent event;
  searchRiseTransitSet(event, moon, day);
  if (phase != nullptr) {
    event.phase = phase->phase;
    event.mjdPhase = getMjd(phase->date);
    event.isSupermoon = isSupermoon(moon, *phase, calendar);
  }
  return event;
}

}  // namespace zenivo
