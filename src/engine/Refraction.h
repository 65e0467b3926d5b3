// Refraction of the atmosphere at 1013 mbar and 15 degrees Celsius.

#pragma once

namespace zenivo {

/// 1013/1010 times 283/(273 + 15), arcminutes to degrees.
inline constexpr double kRefractionFactor = 0.01642596030436377;

/// Degrees by which refraction lifts a body that stands at a true elevation of
/// `elevation` degrees.  It fades to 0 between -3.54 and -3.64 degrees.
/// Source: Saemundsson, Sky and Telescope 72 (1986), 70.
double refractionTrueToApparent(double elevation);

/// Degrees by which refraction has lifted a body that is seen at `elevation`
/// degrees.  It fades to 0 between -3.22 and -3.32 degrees.
/// Source: Bennett, Journal of Navigation 35 (1982), 255; below the horizon a
/// polynomial that inverts the function above.
double refractionApparentToTrue(double elevation);

}  // namespace zenivo
