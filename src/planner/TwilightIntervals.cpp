#include "planner/TwilightIntervals.h"

#include <vector>

#include "foundation/DateFormatter.h"
#include "planner/SunEvent.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kOpen = 0.0;  // a limit that lies outside of the day

std::string limitString(double mjd, const DateFormatter& clock) {
  return mjd == kOpen ? "..." : clock.stringFromDate(dateFromModifiedJulianDay(mjd));
}

double openUnlessReal(double mjd) {
  return drawEventAtMjd(mjd) ? mjd : kOpen;
}

double firstLimit(const TwilightEvent& span) {
  if (drawEventAtMjd(span.mjdStart())) return span.mjdStart();
  return drawEventAtMjd(span.mjdEnd()) ? span.mjdEnd() : kAlwaysBelow;
}

std::string stringForSpan(const TwilightEvent& span, const TimeZone& zone) {
  return stringForIntervalMjdStart(openUnlessReal(span.mjdStart()), openUnlessReal(span.mjdEnd()),
                                   zone);
}

}  // namespace

std::string stringForIntervalMjdStart(double mjdStart, double mjdEnd, const TimeZone& zone) {
  const DateFormatter clock("%H:%M", zone);
  return limitString(mjdStart, clock) + " - " + limitString(mjdEnd, clock);
}

std::vector<TwilightEvent> SunEvent::spansForLightType(LightType lightType) const {
  // Where a crossing in between escaped the search, of two begins the earlier counts.
  std::vector<TwilightEvent> spans;
  double begin = kNotThisDay;
  for (const LightTypeEvent& event : eventsForLightType(lightType)) {
    if (!event.isBegin) {
      spans.emplace_back(begin, event.mjd);
      begin = kNotThisDay;
    } else if (!drawEventAtMjd(begin)) {
      begin = event.mjd;
    }
  }
  if (drawEventAtMjd(begin)) spans.emplace_back(begin, kNotThisDay);
  if (spans.empty() && lastsAllDay(lightType)) spans.emplace_back(kNotThisDay, kNotThisDay);
  return spans;
}

TwilightIntervals SunEvent::twilightIntervalForLightType(LightType lightType,
                                                         const TimeZone& zone) const {
  const std::vector<TwilightEvent> spans = spansForLightType(lightType);
  TwilightIntervals intervals;
  if (spans.empty()) return intervals;
  intervals.mjdFirstInterval = firstLimit(spans[0]);
  intervals.firstInterval = stringForSpan(spans[0], zone);
  if (spans.size() == 2) {
    intervals.mjdSecondInterval = firstLimit(spans[1]);
    intervals.secondInterval = stringForSpan(spans[1], zone);
  } else {
    for (std::size_t i = 1; i < spans.size(); ++i) {
      intervals.firstInterval += " | " + stringForSpan(spans[i], zone);
    }
  }
  return intervals;
}

TwilightIntervals SunEvent::civilTwilightIntervals(const TimeZone& zone) const {
  return twilightIntervalForLightType(LightType::civil, zone);
}

TwilightIntervals SunEvent::nauticalTwilightIntervals(const TimeZone& zone) const {
  return twilightIntervalForLightType(LightType::nautical, zone);
}

TwilightIntervals SunEvent::astronomicalTwilightIntervals(const TimeZone& zone) const {
  return twilightIntervalForLightType(LightType::astronomical, zone);
}

TwilightIntervals SunEvent::blueHourIntervals(const TimeZone& zone) const {
  return twilightIntervalForLightType(LightType::blueHour, zone);
}

TwilightIntervals SunEvent::goldenHourIntervals(const TimeZone& zone) const {
  return twilightIntervalForLightType(LightType::goldenHour, zone);
}

}  // namespace zenivo
