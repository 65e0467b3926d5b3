// The Moon's phase at one moment: how much of it is lit, and which way it leans.

#pragma once

#include <cstdint>

#include "engine/MoonPhases.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "time/LocalMonth.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMoon;
}  // namespace ephemeris

/// The geometry of the Moon's phase (PtMoon::moonPhaseGeometry).
struct MoonPhase {
  double phase_ = 0;              ///< illuminated fraction of the disk, 0 to 1
  double phase_angle_ = 0;        ///< Sun-Moon-Earth angle, degrees, 0 (full) to 180
  bool waxing_ = false;           ///< the Moon is 0 to 180 degrees east of the Sun
  double parallactic_angle_ = 0;  ///< radians, from the pole to the zenith
  double zenith_angle_ = 0;       ///< radians, 0 to 3 pi, from the zenith to the middle of the
                                  ///< bright limb, through east; adjustedZenithAngle to draw
  std::int32_t moon_phase_type_ = kNoMoonPhase;  ///< kWaxingCrescent to kWaningCrescent
};

/// The zenith angle as it turns a picture of the Moon whose bright limb points
/// right (waxing) or left (waning): (waxing ? -pi/2 : pi/2) minus the angle.
double adjustedZenithAngle(const MoonPhase& geometry);

/// What the panels show of the Moon's phase.
struct MoonPhaseResult {
  float phaseIllumination = 0;        ///< illuminated fraction, 0 to 1
  float zenithAngle = 0;              ///< radians, adjusted for drawing
  float moonElevation = 0;            ///< degrees
  float sunElevation = 0;             ///< degrees
  std::int32_t phase = kNoMoonPhase;  ///< the day's principal phase, else what it is between
  double mjdPhase = 0;  ///< of the principal phase; kNotThisDay: none, 0: not looked for
};

/// The phase at `mjd` from the full series; leaves both bodies at that moment.
/// With high precision the principal phase of `currentDate`'s local day is looked
/// for and, within 150 s of it, the illumination is exactly its own.
MoonPhaseResult moonPhaseDataForMjd(double mjd, double deltaT, ephemeris::PtSun& sun,
                                    ephemeris::PtMoon& moon, Date currentDate,
                                    const Calendar& calendar, bool withHighPrecision = true);

/// Illuminated fraction to be shown at a moment (seconds since the reference
/// date): that of the principal phase within 150 s of it, else the `computed`
/// one.  The moments are compared in single precision, which has steps of 64 s
/// today.  `mjdPhase` may be a sentinel, or `phase` no principal phase.
double illuminationNearPhase(double computed, double timeInterval, double mjdPhase,
                             std::int32_t phase);

/// Days since the new Moon before the moment, above 0 and up to 29.9.  Not a
/// number where the series of the phases does not reach, years beyond 6000.
float moonAgeAt(Date date, const Calendar& calendar);

}  // namespace zenivo
