// Refraction of the atmosphere at 1013 mbar and 15 degrees Celsius.

#pragma once

namespace zenivo {

/// The formulas are for 1010 mbar and 10 degrees, and give arcminutes.
inline constexpr double kRefractionFactor = 1013.0 / 1010.0 * 283.0 / (273.0 + 15.0) / 60.0;

/// Degrees by which refraction lifts a body that stands at a true elevation of
/// `elevation` degrees.
/// Error: 4 arcseconds against Bennett's (0 to 90 degrees); the air of the day makes more,
/// at the horizon up to half a degree.
/// Special cases: fades to 0 between -3.54 and -3.64 degrees, and is 0 below; at the zenith
/// 1e-5; none for what is not a number.
/// Source: Saemundsson, Sky and Telescope 72 (1986), 70.
double refractionTrueToApparent(double elevation);

/// Degrees by which refraction has lifted a body that is seen at `elevation`
/// degrees.
/// Error: it undoes the function above to 0.0015 degrees over the horizon and 0.012 below.
/// Special cases: fades to 0 between -3.22 and -3.32 degrees, and is 0 below; none for what
/// is not a number.
/// Source: Bennett, Journal of Navigation 35 (1982), 255; below the horizon a
/// polynomial that inverts the function above.
double refractionApparentToTrue(double elevation);

}  // namespace zenivo
