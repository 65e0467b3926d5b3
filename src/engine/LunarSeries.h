// The full and the fast series of the Moon's motion.

#pragma once

#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// Both: mean equinox of date, kilometres; T in Julian centuries of dynamical
/// time since J2000.0.
/// Error: full series 5 arcseconds and 30 km, fast series 3.2 arcminutes (1950 to 2050,
/// against ELP2000).
/// Special cases: the fast series has the mean distance; none for what is not a number.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer, chapter 8.
Vector3D fullLunarSeries(double T);
Vector3D fastLunarSeries(double T);

}  // namespace zenivo::ephemeris
