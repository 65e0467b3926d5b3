// The Earth's shadow where the Moon crosses it.

#pragma once

#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {

/// Radii as seen from the Earth's centre, degrees.
struct EarthShadow {
  double umbraRadius = 0;
  double penumbraRadius = 0;
  double moonRadius = 0;  ///< the Moon's own, to draw it in its shadow
};

/// At the distances of the moment that the bodies hold.  The atmosphere enlarges the
/// shadow by a fiftieth, the rule of the almanacs.  The catalogue enlarges by less:
/// by its contacts the umbra is 0.004 degree smaller, the penumbra 0.015.
/// Source: Explanatory Supplement to the Astronomical Almanac (1992), section 8.4.
EarthShadow earthShadow(const ephemeris::PtSun& sun, const ephemeris::PtMoon& moon);

}  // namespace zenivo
