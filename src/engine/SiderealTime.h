// Sidereal time at Greenwich.

#pragma once

namespace zenivo {

/// Mean sidereal time at Greenwich in hours, 0 up to 24, at a moment of
/// Universal Time (not dynamical time: it follows the Earth's rotation).
/// Source: IAU 1982, as in Montenbruck & Pfleger, Astronomy on the Personal
/// Computer.
double greenwichSiderealTime(double mjd);

}  // namespace zenivo
