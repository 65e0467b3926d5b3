#include "time/ZVDateTime.h"

#include <algorithm>
#include <array>

#include "time/CivilDate.h"
#include "time/DeltaT.h"
#include "time/Mjd.h"

namespace zenivo {

double ZVDateTime::getMjd() const {
  return mjdFromCivilDate(
      {.year = year, .month = month, .day = day, .hour = hour, .minutes = minutes});
}

double ZVDateTime::getJd() const {
  return getMjd() + kJdMinusMjd;
}

double ZVDateTime::getJulianEphemerisDate() const {
  return getJd() + getDeltaT();
}

void ZVDateTime::setFromMjd(double mjd) {
  setFromJd(mjd + kJdMinusMjd);
}

void ZVDateTime::setFromJd(double jd) {
  const CivilDate date = civilDateFromJd(jd);
  *this = ZVDateTime(date.year, date.month, date.day, date.hour, date.minutes);
}

double ZVDateTime::getDeltaT() const {
  const double decimalYear = 2000.0 + 100.0 * getJulianCenturies();
  return deltaTForYear(decimalYear,
                       DeltaTCubicTerms{.from1941 = 1.0 / 233.0, .from1961 = 1.0 / 260.0});
}

double ZVDateTime::getJulianCenturies() const {
  return julianCenturies(getMjd());
}

double ZVDateTime::getJulianEphemerisCenturies() const {
  return julianCenturies(getMjd() + getDeltaT());
}

double ZVDateTime::getDecimalYear() const {
  constexpr std::array<int, 12> kDaysBeforeMonth{0,   31,  59,  90,  120, 151,
                                                 181, 212, 243, 273, 304, 334};
  const auto index = static_cast<std::size_t>(std::clamp<std::int64_t>(month, 1, 12) - 1);
  const std::int64_t leap = month > 2 && isLeapYear() ? 1 : 0;
  return static_cast<double>(year) +
         static_cast<double>(kDaysBeforeMonth[index] + leap + day) / 365.0;
}

double ZVDateTime::getDecimalHour() const {
  return static_cast<double>(hour) + minutes / 60.0;
}

bool ZVDateTime::isLeapYear() const {
  return isGregorianLeapYear(year);
}

bool ZVDateTime::isValid() const {
  return year != -1 && month != -1 && day != -1;
}

int ZVDateTime::compare(const ZVDateTime& other) const {
  if (*this < other) return -1;
  return *this > other ? 1 : 0;
}

}  // namespace zenivo
