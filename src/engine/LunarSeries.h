// The full and the fast series of the Moon's motion.

#pragma once

#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// Both: mean equinox of date, kilometres; T in Julian centuries of dynamical
/// time since J2000.0.  PtMoon says how good they are.
Vector3D fullLunarSeries(double T);
Vector3D fastLunarSeries(double T);

}  // namespace zenivo::ephemeris
