// Sidereal time at Greenwich.

#pragma once

namespace zenivo {

/// Mean sidereal time at Greenwich in hours, 0 up to 24, at a moment of
/// Universal Time (not dynamical time: it follows the Earth's rotation).
///
/// Error: 1e-7 h, 0.4 ms (1900 to 2100, against Meeus's examples); UT is taken for UT1,
/// which is within 0.9 s of what clocks show.
/// Special cases: never 24 and never negative; none for what is not a number.
/// Source: IAU 1982, as in Montenbruck & Pfleger, Astronomy on the Personal Computer.
double greenwichSiderealTime(double mjd);

}  // namespace zenivo
