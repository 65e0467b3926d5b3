#include "planner/BodyInfoEvent.h"

#include <algorithm>

#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo {

void BodyInfoEvent::sortEvents() {
  std::ranges::stable_sort(subevents, {}, &BodyInfoEvent::mjd);
}

std::string BodyInfoEvent::timeString(const TimeZone& zone) const {
  if (!drawEventAtMjd(mjd)) return {};
  return DateFormatter("%H:%M", zone).stringFromDate(dateFromModifiedJulianDay(mjd));
}

double BodyInfoEvent::mjdForSubeventAtPoint(double x, double y) const {
  const auto found = std::ranges::find_if(
      subevents, [&](const BodyInfoEvent& event) { return event.frame.contains(x, y); });
  return found != subevents.end() ? found->mjd : kNotThisDay;
}

}  // namespace zenivo
