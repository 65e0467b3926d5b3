#include "engine/MoonPhases.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>

#include "engine/Angles.h"
#include "engine/MoonPhaseSeries.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using series::MoonPhaseTerm;

/// The arguments of the periodic terms at one mean phase.
struct PhaseArguments {
  std::array<double, 3> eccentricity;  // E to the powers 0, 1 and 2
  double m;                            // mean anomaly of the Sun, radians
  double mp;                           // mean anomaly of the Moon
  double f;                            // argument of latitude of the Moon
  double om;                           // longitude of its ascending node

  double of(const MoonPhaseTerm& term) const {
    return term.m * m + term.mp * mp + term.f * f + term.om * om;
  }
  double amplitude(const MoonPhaseTerm& term) const {
    return term.days * eccentricity[static_cast<std::size_t>(term.eccentricity)];
  }
};

PhaseArguments phaseArgumentsAt(double k, double t) {
  const double e = 1.0 - t * (0.002516 + 0.0000074 * t);
  const double m = 2.5534 + 29.1053567 * k - t * t * (0.0000014 + 0.00000011 * t);
  const double mp =
      201.5643 + 385.81693528 * k + t * t * (0.0107582 + t * (0.00001238 - 0.000000058 * t));
  const double f =
      160.7108 + 390.67050284 * k - t * t * (0.0016118 + t * (0.00000227 - 0.000000011 * t));
  const double om = 124.7746 - 1.56375588 * k + t * t * (0.0020672 + 0.00000215 * t);
  return {{1.0, e, e * e}, m * kDegree, mp * kDegree, f * kDegree, om * kDegree};
}

double sumOfSines(std::span<const MoonPhaseTerm> terms, const PhaseArguments& arguments) {
  double sum = 0;
  for (const MoonPhaseTerm& term : terms) {
    sum += arguments.amplitude(term) * std::sin(arguments.of(term));
  }
  return sum;
}

/// W: what the first quarter comes later and the last quarter earlier.
double quarterCorrection(const PhaseArguments& arguments) {
  double sum = 0;
  for (const MoonPhaseTerm& term : series::kQuarterCorrectionTerms) {
    sum += arguments.amplitude(term) * std::cos(arguments.of(term));
  }
  return sum;
}

double planetaryCorrection(double k, double t) {
  double sum = 0;
  for (const auto& term : series::kMoonPhasePlanetaryTerms) {
    const double degrees = term.constant + term.perLunation * k + term.perCentury2 * t * t;
    sum += term.days * std::sin(degrees * kDegree);
  }
  return sum;
}

double periodicCorrection(std::int32_t phase, const PhaseArguments& arguments) {
  switch (phase) {
    case kNewMoon:
      return sumOfSines(series::kNewMoonTerms, arguments);
    case kFullMoon:
      return sumOfSines(series::kFullMoonTerms, arguments);
    case kFirstQuarter:
      return sumOfSines(series::kQuarterTerms, arguments) + quarterCorrection(arguments);
    default:
      return sumOfSines(series::kQuarterTerms, arguments) - quarterCorrection(arguments);
  }
}

void appendIfNotBefore(const PtDateTime& start, double jd, std::int32_t phase,
                       std::vector<PtMoonPhaseWithDate>& phases) {
  PtMoonPhaseWithDate item{.phase = phase, .date = {}};
  setFromJd(item.date, jd);
  if (start <= item.date) phases.push_back(item);
}

/// Appends the phases of one kind from `start` on: of the lunation in which
/// `start` falls, the one before and the one after.
void appendPhases(const PtDateTime& start, std::int32_t phase,
                  std::vector<PtMoonPhaseWithDate>& phases) {
  const double startJd = getJd(start);
  const double year = start.year + (start.month - 1) / 12.0;
  double k = std::floor((year - 2000.0) * 12.3685) + phase / 4.0;

  std::optional<double> before;
  double after = moonPhaseJulianEphemerisDate(k);
  while (after < startJd) {
    before = after;
    k += 1.0;
    after = moonPhaseJulianEphemerisDate(k);
  }
  // The guess of k may be a lunation late: then even the one before counts.
  if (!before) before = moonPhaseJulianEphemerisDate(k - 1.0);
  for (const double jd : {*before, after, moonPhaseJulianEphemerisDate(k + 1.0)}) {
    appendIfNotBefore(start, jd, phase, phases);
  }
}

}  // namespace

// Mean phases follow one another by 29.530588853 days; the true ones are early or late by
// up to 14 hours, as Sun and Moon run ahead of or behind their means: sines of multiples of
// their anomalies M and M', of F and of the node, those with the Sun's scaled by the changing
// eccentricity E of the Earth's orbit.
double moonPhaseJulianEphemerisDate(double k) {
  const double t = k / 1236.85;
  const double mean =
      2451550.09765 + 29.530588853 * k + t * t * (0.0001337 - t * (0.00000015 - 0.00000000073 * t));
  const auto phase = static_cast<std::int32_t>(std::lround(frac(k) * 4.0)) % 4;
  return mean + periodicCorrection(phase, phaseArgumentsAt(k, t)) + planetaryCorrection(k, t);
}

std::vector<PtMoonPhaseWithDate> phasesFromDate(const PtDateTime& start) {
  std::vector<PtMoonPhaseWithDate> phases;
  phases.reserve(12);
  for (const std::int32_t phase : {kNewMoon, kFirstQuarter, kFullMoon, kLastQuarter}) {
    appendPhases(start, phase, phases);
  }
  std::ranges::sort(phases, {}, &PtMoonPhaseWithDate::date);
  return phases;
}

DateComponents localDayOfPhase(const PtMoonPhaseWithDate& phase, const Calendar& calendar) {
  return calendar.componentsFromDate(dateWithPtDateTime(phase.date, true));
}

const PtMoonPhaseWithDate* phaseForDayOfMonth(std::span<const PtMoonPhaseWithDate> phases, int day,
                                              int month, const Calendar& calendar) {
  const auto found = std::ranges::find_if(phases, [&](const PtMoonPhaseWithDate& item) {
    const DateComponents c = localDayOfPhase(item, calendar);
    return c.day == day && c.month == month;
  });
  return found == phases.end() ? nullptr : &*found;
}

}  // namespace zenivo
