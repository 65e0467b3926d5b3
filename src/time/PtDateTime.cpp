#include "time/PtDateTime.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "time/CivilDate.h"
#include "time/DeltaT.h"

namespace zenivo {

double getMjd(const PtDateTime& record) {
  return mjdFromCivilDate({.year = record.year,
                           .month = record.month,
                           .day = record.day,
                           .hour = record.hour,
                           .minutes = record.minutes});
}

double getJd(const PtDateTime& record) {
  return getMjd(record) + kJdMinusMjd;
}

void setFromMjd(PtDateTime& record, double mjd) {
  setFromJd(record, mjd + kJdMinusMjd);
}

void setFromJd(PtDateTime& record, double jd) {
  const CivilDate date = civilDateFromJd(jd);
  record.year = static_cast<std::int32_t>(date.year);
  record.month = static_cast<std::int32_t>(date.month);
  record.day = static_cast<std::int32_t>(date.day);
  record.hour = static_cast<std::int32_t>(date.hour);
  const float hundredThousandths = std::round(static_cast<float>(date.minutes * 100000.0));
  record.minutes = static_cast<double>(hundredThousandths / 100000.0F);
}

double getDeltaT(const PtDateTime& record) {
  const double year = 2000.0 + 100.0 * julianCenturies(getMjd(record));
  return deltaTForYear(year, DeltaTCubicTerms{.from1941 = 0.0, .from1961 = 0.0});
}

double getDecimalYear(const PtDateTime& record) {
  constexpr std::array<int, 12> kDaysBeforeMonth{0,   31,  59,  90,  120, 151,
                                                 180, 211, 242, 272, 303, 333};
  const auto month = static_cast<std::size_t>(std::clamp(record.month, 1, 12) - 1);
  const int leap = record.month > 2 && isGregorianLeapYear(record.year) ? 1 : 0;
  return record.year + (kDaysBeforeMonth[month] + leap + record.day) / 365.0;
}

}  // namespace zenivo
