// The arithmetic of civil dates that both date records stand on.

#pragma once

#include <cstdint>

namespace zenivo {

/// A date of the Julian calendar up to 1582-10-04 and of the Gregorian from
/// 1582-10-15 on, with a time of day.
struct CivilDate {
  std::int64_t year = 0;  ///< astronomical: the year before 1 is 0
  std::int64_t month = 0;
  std::int64_t day = 0;
  std::int64_t hour = 0;
  double minutes = 0;  ///< with their fraction
};

/// Modified Julian date of a civil date.
/// Error: rounding, 1e-10 days in this millennium.
/// Special cases: years from -4716 on; the ten days that the reform left out are counted on.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer, chapter 2.
double mjdFromCivilDate(const CivilDate& date);

/// Civil date of a Julian date; minutes below 60, with rounding noise.  Of what is not a
/// number, or farther than two milliard years, the year 0 and minutes that are not a number.
/// Error: a Julian date in a double is good to 40 microseconds.
/// Special cases: Julian dates from 0 on.
/// Source: Meeus, Astronomical Algorithms, chapter 7.
CivilDate civilDateFromJd(double jd);

bool isGregorianLeapYear(std::int64_t year);

}  // namespace zenivo
