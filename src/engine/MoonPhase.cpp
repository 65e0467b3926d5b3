#include "engine/MoonPhase.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// The mjd of the last new Moon of a list before `mjd`.
std::optional<double> lastNewMoonBefore(double mjd, const std::vector<PtMoonPhaseWithDate>& list) {
  const auto found = std::find_if(list.rbegin(), list.rend(), [&](const auto& item) {
    return item.phase == kNewMoon && getMjd(item.date) < mjd;
  });
  if (found == list.rend()) return std::nullopt;
  return getMjd(found->date);
}

}  // namespace

double adjustedZenithAngle(const MoonPhase& geometry) {
  return (geometry.waxing_ ? -kPi / 2.0 : kPi / 2.0) - geometry.zenith_angle_;
}

double illuminationNearPhase(double computed, double timeInterval, double mjdPhase,
                             std::int32_t phase) {
  if (phase < kNewMoon || phase > kLastQuarter || !drawEventAtMjd(mjdPhase)) return computed;
  const auto moment = static_cast<float>(timeInterval);
  const auto momentOfPhase = static_cast<float>(mjdToTimeInterval(mjdPhase));
  if (std::abs(moment - momentOfPhase) > 150.0F) return computed;
  return phase == kNewMoon ? 0.0 : phase == kFullMoon ? 1.0 : 0.5;
}

MoonPhaseResult moonPhaseDataForMjd(double mjd, double deltaT, ephemeris::PtSun& sun,
                                    ephemeris::PtMoon& moon, Date currentDate,
                                    const Calendar& calendar, bool withHighPrecision) {
  const ephemeris::Frame frame = ephemeris::frameAt(mjd, deltaT);
  sun.computePosition(true, frame);
  moon.computePosition(true, frame);
  const MoonPhase geometry = moon.moonPhaseGeometry(
      moon.ecliptic(), moon.equatorial(), sun.ecliptic(), sun.equatorial(), moon.hourAngle());
  MoonPhaseResult result;
  if (withHighPrecision) {
    const std::vector<PtMoonPhaseWithDate> phases =
        phasesFromDate(startOfMonthOfDate(currentDate, calendar));
    const PtMoonPhaseWithDate* ofDay = phaseForDayOfMonth(
        phases, dayValue(currentDate, calendar), monthValue(currentDate, calendar), calendar);
    result.mjdPhase = ofDay ? getMjd(ofDay->date) : kNotThisDay;
    if (ofDay) result.phase = ofDay->phase;
  }
  result.phaseIllumination = static_cast<float>(illuminationNearPhase(
      geometry.phase_, mjdToTimeInterval(mjd), result.mjdPhase, result.phase));
  if (result.phase == kNoMoonPhase) result.phase = geometry.moon_phase_type_;
  result.zenithAngle = static_cast<float>(adjustedZenithAngle(geometry));
  result.moonElevation = static_cast<float>(moon.horizontal().elevation_);
  result.sunElevation = static_cast<float>(sun.horizontal().elevation_);
  return result;
}

float moonAgeAt(Date date, const Calendar& calendar) {
  // The first of a month may come before its new Moon, and February may have
  // none; January then has one at its end.
  constexpr int kMostMonthsBack = 2;
  const double mjd = modifiedJulianDay(date);
  const DateComponents c = calendar.componentsFromDate(date);
  for (int back = 0; back <= kMostMonthsBack; ++back) {
    const auto phases = phasesFromDate(startOfMonth(c.year, c.month - back, calendar));
    if (const auto newMoon = lastNewMoonBefore(mjd, phases)) {
      return static_cast<float>(mjd - *newMoon);
    }
  }
  return std::numeric_limits<float>::quiet_NaN();
}

}  // namespace zenivo
