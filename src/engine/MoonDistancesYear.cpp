#include "engine/MoonDistancesYear.h"

#include "engine/MoonPhase.h"
#include "engine/MoonPhases.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/Supermoon.h"
#include "time/DateEphemeris.h"
#include "time/LocalMonth.h"

namespace zenivo {
namespace {

/// The full Moons of one local month, in time order.
std::vector<PtDateTime> fullMoonsOfMonth(std::int64_t year, int month, const Calendar& calendar) {
  std::vector<PtDateTime> fullMoons;
  for (const PtMoonPhaseWithDate& item : phasesFromDate(startOfMonth(year, month, calendar))) {
    if (item.phase != kFullMoon) continue;
    const DateComponents c = localDayOfPhase(item, calendar);
    if (c.year == year && c.month == month) fullMoons.push_back(item.date);
  }
  return fullMoons;
}

}  // namespace

MoonDistancesYear::MoonDistancesYear(const PtPosition& location, std::int64_t year,
                                     Calendar calendar)
    : location_(location.latitude(), location.longitude()),
      calendar_(std::move(calendar)),
      year_(year) {
  recalculateDistances();
}

void MoonDistancesYear::recalculateDistances() {
  supermoons_.clear();
  apogees_.clear();
  perigees_.clear();
  ephemeris::PtMoon moon(location_);
  ephemeris::PtSun sun(location_);

  for (const MoonDistance& apsis : apogeePerigeesForYear(year_, calendar_)) {
    MoonPhaseDistance record = moonDistanceWithMoon(moon, sun, apsis.mjd);
    record.type = apsis.type;
    (apsis.type == MoonDistanceType::apogee ? apogees_ : perigees_).push_back(record);
  }
  for (int month = 1; month <= 12; ++month) {
    for (const PtDateTime& fullMoon : fullMoonsOfMonth(year_, month, calendar_)) {
      MoonPhaseDistance record = moonDistanceWithMoon(moon, sun, getMjd(fullMoon));
      if (!isFullMoonDateASupermoonDay(record.date, record.distanceToEarth, calendar_)) continue;
      record.type = MoonDistanceType::supermoon;
      supermoons_.push_back(record);
    }
  }
}

void MoonDistancesYear::nextYear() {
  ++year_;
  recalculateDistances();
}

void MoonDistancesYear::previousYear() {
  --year_;
  recalculateDistances();
}

MoonPhaseDistance MoonDistancesYear::moonDistanceWithMoon(ephemeris::PtMoon& moon,
                                                          ephemeris::PtSun& sun, double mjd) {
  PtDateTime moment;
  setFromMjd(moment, mjd);
  const ephemeris::Frame frame = ephemeris::frameAt(mjd, getDeltaT(moment));
  sun.computePosition(true, frame);
  moon.computePosition(true, frame);
  const MoonPhase geometry = moon.moonPhaseGeometry(
      moon.ecliptic(), moon.equatorial(), sun.ecliptic(), sun.equatorial(), moon.hourAngle());
  MoonPhaseDistance record;
  record.mjd = mjd;
  record.date = dateWithPtDateTime(moment, true);
  record.distanceToEarth = moon.horizontal().distance_;
  record.phase = geometry.phase_;
  record.waxing = geometry.waxing_;
  record.zenithAngle = adjustedZenithAngle(geometry);
  record.sunElevation = sun.horizontal().elevation_;
  record.moonElevation = moon.horizontal().elevation_;
  return record;
}

}  // namespace zenivo
