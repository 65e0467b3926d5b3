#include "calculators/camera/Formatters.h"

namespace zenivo {

DateFormatter Formatters::shortDateFormatter() const {
  return {"%E4Y-%m-%d", shortTimeFormatter().timeZone()};
}

DateFormatter Formatters::shortDateTimeFormatter() const {
  return {"%E4Y-%m-%d %H:%M", shortTimeFormatter().timeZone()};
}

void Formatters::setTimeZone(const TimeZone& zone) {
  setSharedFormattersTimeZone(zone);
}

DateFormatter Formatters::RFC3339DateFormatter() {
  return {"%E4Y-%m-%dT%H:%M:%SZ", TimeZone()};
}

DateFormatter Formatters::RFC3339DateFormatterWithSpecificTimeZone(const TimeZone& zone) {
  return {"%E4Y-%m-%dT%H:%M:%S%Ez", zone};
}

NumberFormatter Formatters::enUSPosixNumberFormatter() {
  return NumberFormatter{.maximumFractionDigits = 20};
}

DateFormatter Formatters::dateFormatterWithMediumMonthAndNoYear() {
  return {"%b %d", TimeZone::defaultTimeZone()};
}

DateFormatter Formatters::dateTimeFormatterWithMediumMonthAndNoYear() {
  return {"%b %d, %H:%M", TimeZone::defaultTimeZone()};
}

}  // namespace zenivo
