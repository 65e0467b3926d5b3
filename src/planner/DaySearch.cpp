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
  return isFullMoonDateASupermoonDay(dateWithPtDateTime(phase.date, true),
                                     moon.horizontal().distance_, calendar);
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
  const Twilights t =
      calculateTwilightsForMjd(day.mjdAt0, day.deltaT, dayValue(day.date, calendar), sun, calendar);
  SunEvent event;
  event.civilTwilight = TwilightEvent(t.mjdCivilTwStart, t.mjdCivilTwEnd);
  event.nauticalTwilight = TwilightEvent(t.mjdNautTwStart, t.mjdNautTwEnd);
  event.astronomicalTwilight = TwilightEvent(t.mjdAstronomicalTwStart, t.mjdAstronomicalTwEnd);
  if (t.mjdAstronomicalTwEnd2 != kAlwaysBelow &&
      t.mjdAstronomicalTwEnd2 != t.mjdAstronomicalTwEnd) {
    event.astronomicalTwilight2 = TwilightEvent(kAlwaysBelow, t.mjdAstronomicalTwEnd2);
  }
  event.blueHour = TwilightEvent(t.mjdBlueHourStart, t.mjdBlueHourEnd);
  event.goldenHour = TwilightEvent(t.mjdGoldenHourStart, t.mjdGoldenHourEnd);
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
