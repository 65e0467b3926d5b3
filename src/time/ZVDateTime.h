// The civil date class of the newer code.

#pragma once

#include <compare>
#include <cstdint>

namespace zenivo {

/// ZVDateTime: a civil date and time, always Universal Time, PtDateTime's twin.  It differs
/// in three things: minutes keep all their digits, deltaT has the cubic terms
/// of 1941 to 1986, and the decimal year counts every day.
class ZVDateTime {
 public:
  /// No date: isValid() is false.
  ZVDateTime() = default;
  ZVDateTime(std::int64_t theYear, std::int64_t theMonth, std::int64_t theDay,
             std::int64_t theHour = 0, double theMinutes = 0)
      : year(theYear), month(theMonth), day(theDay), hour(theHour), minutes(theMinutes) {}

  std::int64_t year = -1;   ///< astronomical: the year before 1 is 0
  std::int64_t month = -1;  ///< 1 to 12
  std::int64_t day = -1;    ///< 1 to 31
  std::int64_t hour = 0;    ///< 0 to 23
  double minutes = 0;       ///< with their fraction

  /// Modified and full Julian date; see PtDateTime for the calendars.
  double getMjd() const;
  double getJd() const;
  /// The Julian date in dynamical time: getJd() + getDeltaT().
  double getJulianEphemerisDate() const;

  void setFromMjd(double mjd);
  void setFromJd(double jd);

  /// TT minus UT, days.
  double getDeltaT() const;

  /// Julian centuries since J2000.0, in Universal Time and in dynamical time.
  double getJulianCenturies() const;
  double getJulianEphemerisCenturies() const;

  /// The year with the fraction of it gone at the end of the day.
  double getDecimalYear() const;
  /// The hour with its fraction.
  double getDecimalHour() const;

  /// By the Gregorian rule, whatever the year.
  bool isLeapYear() const;
  /// False when year, month or day is -1, which stands for unset.
  bool isValid() const;

  /// Orders by year, month, day, hour and minutes in turn: -1 when this date
  /// comes before `other`, 1 when it comes after, 0 when all five are equal.
  int compare(const ZVDateTime& other) const;

  friend auto operator<=>(const ZVDateTime&, const ZVDateTime&) = default;
};

}  // namespace zenivo
