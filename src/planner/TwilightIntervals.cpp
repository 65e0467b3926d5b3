#include "planner/TwilightIntervals.h"

#include <vector>

#include "engine/DateEphemeris.h"
#include "foundation/DateFormatter.h"
#include "planner/SunEvent.h"

namespace zenivo {
namespace {

constexpr double kOpen = 0.0;  // a limit that lies outside of the day

struct Span {
  double start = kOpen;
  double end = kOpen;
};

std::string limitString(double mjd) {
  return mjd == kOpen ? "..." : timeStringFromDate(dateFromModifiedJulianDay(mjd));
}

/// Pairs begins with ends.  Where a crossing in between escaped the search, of two
/// begins the earlier counts, and an end without a begin closes an open span.
std::vector<Span> spansOf(const std::vector<LightTypeEvent>& events) {
  std::vector<Span> spans;
  double begin = kOpen;
  for (const LightTypeEvent& event : events) {
    if (!event.isBegin) {
      spans.push_back({begin, event.mjd});
      begin = kOpen;
    } else if (begin == kOpen) {
      begin = event.mjd;
    }
  }
  if (begin != kOpen) spans.push_back({begin, kOpen});
  return spans;
}

double firstLimit(const Span& span) {
  if (span.start != kOpen) return span.start;
  return span.end != kOpen ? span.end : kAlwaysBelow;
}

std::string stringForSpan(const Span& span) {
  return stringForIntervalMjdStart(span.start, span.end);
}

}  // namespace

std::string stringForIntervalMjdStart(double mjdStart, double mjdEnd) {
  return limitString(mjdStart) + " - " + limitString(mjdEnd);
}

TwilightIntervals SunEvent::twilightIntervalForLightType(LightType lightType) const {
  std::vector<Span> spans = spansOf(eventsForLightType(lightType));
  if (spans.empty() && lastsAllDay(lightType)) spans.push_back({});

  TwilightIntervals intervals;
  if (spans.empty()) return intervals;
  intervals.mjdFirstInterval = firstLimit(spans[0]);
  intervals.firstInterval = stringForSpan(spans[0]);
  if (spans.size() == 2) {
    intervals.mjdSecondInterval = firstLimit(spans[1]);
    intervals.secondInterval = stringForSpan(spans[1]);
  } else {
    for (std::size_t i = 1; i < spans.size(); ++i) {
      intervals.firstInterval += " | " + stringForSpan(spans[i]);
    }
  }
  return intervals;
}

TwilightIntervals SunEvent::civilTwilightIntervals() const {
  return twilightIntervalForLightType(LightType::civil);
}

TwilightIntervals SunEvent::nauticalTwilightIntervals() const {
  return twilightIntervalForLightType(LightType::nautical);
}

TwilightIntervals SunEvent::astronomicalTwilightIntervals() const {
  return twilightIntervalForLightType(LightType::astronomical);
}

TwilightIntervals SunEvent::blueHourIntervals() const {
  return twilightIntervalForLightType(LightType::blueHour);
}

TwilightIntervals SunEvent::goldenHourIntervals() const {
  return twilightIntervalForLightType(LightType::goldenHour);
}

}  // namespace zenivo
