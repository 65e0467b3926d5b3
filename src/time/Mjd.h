// Moments as modified Julian dates, and the values that stand where an event
// has no moment.
//
// An mjd is days of Universal Time since 1858-11-17 00:00.  deltaT, TT minus
// UT, is always in days, so that the dynamical instant is mjd + deltaT.

#pragma once

namespace zenivo {

inline constexpr double kSecondsPerDay = 86400.0;
inline constexpr double kMinutesPerDay = 1440.0;

inline constexpr double kMjdJ2000 = 51544.5;
inline constexpr double kDaysPerCentury = 36525.0;
inline constexpr double kJdMinusMjd = 2400000.5;

/// This kind of crossing does not fall in this day; it does on others.
inline constexpr double kNotThisDay = -2.0;
/// The body stays above the altitude through the whole day.
inline constexpr double kAlwaysAbove = -3.0;
/// The body stays below the altitude through the whole day, or there is no
/// second astronomical dusk.
inline constexpr double kAlwaysBelow = -4.0;

/// True when `mjd` is a real moment and not one of the three sentinels above,
/// which are compared exactly.
constexpr bool drawEventAtMjd(double mjd) {
  return mjd != kNotThisDay && mjd != kAlwaysAbove && mjd != kAlwaysBelow;
}

/// Whether `mjd` comes before `other`, of which either may be a sentinel: those
/// come before every moment, also before the moments until 1858-11-16, whose mjd
/// are negative.
constexpr bool mjdIsBefore(double mjd, double other) {
  const bool isMoment = drawEventAtMjd(mjd);
  return isMoment == drawEventAtMjd(other) ? mjd < other : !isMoment;
}

/// Julian centuries since J2000.0, in the time scale of the argument.
constexpr double julianCenturies(double mjd) {
  return (mjd - kMjdJ2000) / kDaysPerCentury;
}

}  // namespace zenivo
