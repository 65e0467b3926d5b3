// Where the Earth stands on its path through the streams of meteoroids.

#pragma once

#include <cstdint>

namespace zenivo {

/// The Sun's geometric ecliptic longitude, equinox J2000.0, in degrees: from 0 to 360,
/// both included.  Within 0.002 degrees, three minutes of time, from 1900 to 2100.
/// Source: Bretagnon & Francou, VSOP87, truncated as for meteor work by Steyaert
/// (WGN 19-2, 1991).
double calculateSolarLongitudeForMjd(double mjd);

/// When the Sun's longitude is `solarLongitude` (degrees, J2000.0) in the return of a
/// shower whose peak lies in this month of this year: mjd.  A fit to the longitude
/// above; within 19 minutes of it, from 1950 to 2050.
double predictedPeakMjd(double solarLongitude, std::int64_t year, int month);

}  // namespace zenivo
