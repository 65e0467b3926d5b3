#include "time/CivilDate.h"
#include "time/Mjd.h"

#include <cmath>
#include <limits>

namespace zenivo {

// Years begin in March, so that the leap day is a year's last; from then on the months have
// 30.6 days in the mean, and 30.6001 times the number of months is cut down to the days
// before each.  -679004 brings March of the year 0 to the count from 1858 November 17, -1181
// the leap days of the Julian years to those of the Gregorian ones.
double mjdFromCivilDate(const CivilDate& date) {
  std::int64_t year = date.year;
  std::int64_t month = date.month;
  if (month < 3) {
    month += 12;
    --year;
  }
  constexpr std::int64_t kLastJulianDay = 15821004;
  const bool julian = 10000 * year + 100 * month + date.day <= kLastJulianDay;
  const std::int64_t leapDays =
      julian ? (year + 4716) / 4 - 1181 : year / 400 - year / 100 + year / 4;
  const auto monthDays = static_cast<std::int64_t>(30.6001 * static_cast<double>(month + 1));
  const std::int64_t midnight = 365 * year - 679004 + leapDays + monthDays + date.day;
  return static_cast<double>(midnight) + static_cast<double>(date.hour) / 24.0 +
         date.minutes / kMinutesPerDay;
}

// The same backwards: alpha counts the Gregorian centuries, whose left-out leap days are put
// in again; then c years of 365.25 days and e months of 30.6001 are taken off.
CivilDate civilDateFromJd(double jd) {
  constexpr double kFirstGregorianDay = 2299161;
  constexpr double kFarthest = 7e11;  // days; a year beyond does not fit the records
  if (!(std::abs(jd) < kFarthest)) return {.minutes = std::numeric_limits<double>::quiet_NaN()};
  const double x = jd + 0.5;
  const double dayNumber = std::trunc(x);
  double a = dayNumber;
  if (a >= kFirstGregorianDay) {
    const double alpha = std::trunc((a - 1867216.25) / 36524.25);
    a = a + 1.0 + alpha - std::floor(alpha * 0.25);
  }
  const double b = a + 1524.0;
  const double c = std::trunc((b - 122.1) / 365.25);
  const double d = b - std::trunc(c * 365.25);
  const double e = std::trunc(d / 30.6001);
  const double month = e < 14.0 ? e - 1.0 : e - 13.0;
  const double seconds = (x - std::floor(x)) * kSecondsPerDay;
  return {
      .year = static_cast<std::int64_t>(month < 3.0 ? c - 4715.0 : c - 4716.0),
      .month = static_cast<std::int64_t>(month),
      .day = static_cast<std::int64_t>(x - dayNumber + d - std::floor(e * 30.6001)),
      .hour = static_cast<std::int64_t>(std::floor(seconds / 3600.0)),
      .minutes = std::fmod(seconds / 60.0, 60.0),
  };
}

bool isGregorianLeapYear(std::int64_t year) {
  return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

}  // namespace zenivo
