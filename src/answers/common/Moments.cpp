#include "answers/common/Moments.h"

#include <fmt/format.h>

#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"
#include "time/Mjd.h"

namespace zenivo {

Json momentJson(double mjd, const TimeZone& zone) {
  Json time = nullptr;
  if (drawEventAtMjd(mjd)) time = iso8601String(dateOfMjd(mjd), zone);
  return {{"mjd", mjd}, {"time", std::move(time)}};
}

Json momentJson(Date date, const TimeZone& zone) {
  return momentJson(modifiedJulianDay(date), zone);
}

std::string isoDate(const DateComponents& day) {
  return fmt::format("{:04}-{:02}-{:02}", day.year, day.month, day.day);
}

}  // namespace zenivo
