// The principal phases of the Moon: new Moon, quarters and full Moon.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "foundation/Calendar.h"
#include "time/PtDateTime.h"

namespace zenivo {

// Phase codes.  The first four are moments, the next four what lies between.
inline constexpr std::int32_t kNoMoonPhase = -1;
inline constexpr std::int32_t kNewMoon = 0;
inline constexpr std::int32_t kFirstQuarter = 1;
inline constexpr std::int32_t kFullMoon = 2;
inline constexpr std::int32_t kLastQuarter = 3;
inline constexpr std::int32_t kWaxingCrescent = 4;
inline constexpr std::int32_t kWaxingGibbous = 5;
inline constexpr std::int32_t kWaningGibbous = 6;
inline constexpr std::int32_t kWaningCrescent = 7;

/// A principal phase (0 to 3) and its moment.
struct PtMoonPhaseWithDate {
  std::int32_t phase = kNoMoonPhase;
  PtDateTime date;
};

/// Julian Ephemeris Date of the phase of lunation `k`: a whole number is a new
/// Moon (0 that of 2000 January 6), .25 more the first quarter, .5 the full
/// Moon, .75 the last quarter.  No other fraction has a meaning.
/// Error: within 20 s of the full lunar theory from 1950 to 2050.
/// Special cases: far from the years -4000 to 6000 the polynomials lose meaning.
/// Source: Meeus, Astronomical Algorithms, chapter 49, with the mean phase of
/// its first edition.
double moonPhaseJulianEphemerisDate(double k);

/// The principal phases from `start` on, in time order: two or three of each
/// kind, those of the next 58 days without a gap.  None lies before `start`.
///
/// The dynamical time of the series is given as if it were Universal Time:
/// moments are late by deltaT, about a minute in this century.
std::vector<PtMoonPhaseWithDate> phasesFromDate(const PtDateTime& start);

/// The local day of a phase, in the zone of the calendar: that of its moment, to the
/// second.  (Rounded to the minute, a phase of the last half minute of a day would stand on
/// the next, with a time of the day before.)
DateComponents localDayOfPhase(const PtMoonPhaseWithDate& phase, const Calendar& calendar);

/// The one of `phases` that falls on that day of that month in the zone of the
/// calendar, or nullptr; it lives as long as the list.  The list spans less than a year.
const PtMoonPhaseWithDate* phaseForDayOfMonth(std::span<const PtMoonPhaseWithDate> phases, int day,
                                              int month, const Calendar& calendar);

}  // namespace zenivo
