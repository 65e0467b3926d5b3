// How many minutes a scan may leave out.
//
// The sky turns by 0.2507 degrees a minute; the Moon's own motion and its
// parallax, nearest to the Earth, carry that to 0.2665 at most.  An azimuth runs
// faster than the body by 1 / cos(elevation).  While the body is farther from
// what is wanted than it can travel, evaluating it would change nothing.

#pragma once

namespace zenivo {

/// Whole minutes, 0 or more, after which the azimuth of a body that now stands at
/// `elevation` (degrees, with refraction) can at the earliest have changed by
/// `gap` degrees.
int minutesForAzimuthChange(double gap, double elevation);

/// The same for the refracted elevation, which refraction makes jump by up to a
/// third of a degree where it fades out below the horizon.
int minutesForElevationChange(double gap);

}  // namespace zenivo
