// When a body crosses an altitude within 24 hours.

#pragma once

#include <functional>

#include "engine/DaySamples.h"
#include "time/Mjd.h"

namespace zenivo::ephemeris {

/// The crossings of one 24-hour window, mjd or sentinels (Mjd.h).
struct RiseSet {
  double rise = kNotThisDay;
  double set = kNotThisDay;

  friend bool operator==(const RiseSet&, const RiseSet&) = default;
};

/// The crossings of the altitude of sine `target`.  Two-hour steps with a parabola
/// through three samples; of a missing crossing kNotThisDay, of both kAlwaysAbove or
/// kAlwaysBelow.
///
/// `evaluate` gives the sample of a whole hour of the window.  Steps in which there can
/// be no crossing are not sampled: `fastest` is what the body moves among the stars at
/// most, radians a day.  It changes nothing but the time that the search takes.
/// Error: see PtPlanet::riseSet.
/// Special cases: where the altitude or the target is not a number, kNotThisDay in both.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer, chapter 3.
RiseSet searchCrossings(DaySamples& samples, const std::function<DaySample(int)>& evaluate,
                        double target, double fastest);

}  // namespace zenivo::ephemeris
