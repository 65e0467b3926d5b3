#include "planner/DarkNight.h"

#include <algorithm>
#include <array>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "planner/DaySearch.h"
#include "planner/NightWindow.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kShortestWholeNight = 1;  // hours

double noonOf(const SunEvent& day, const Calendar& calendar) {
  const Date midnight = Date::withTimeIntervalSinceReferenceDate(day.date);
  return modifiedJulianDay(dateWithNoonDateTime(midnight, calendar));
}

/// The darkness between the noons of two days; `night` is what bounds it on ordinary days.
std::optional<TimeSpan> darknessBetween(const SunEvent& first, const SunEvent& second,
                                        const std::optional<NightWindow>& night,
                                        const Calendar& calendar) {
  const double dusk = night ? night->dusk : kNotThisDay;
  const double dawn = night ? night->dawn : second.astronomicalTwilight.mjdStart();
  const TimeSpan span{first.isDarkAllDay() ? noonOf(first, calendar) : dusk,
                      second.isDarkAllDay() ? noonOf(second, calendar) : dawn};
  if (!drawEventAtMjd(span.start) || !drawEventAtMjd(span.end) || span.end <= span.start) {
    return std::nullopt;
  }
  return span;
}

/// The parts of a span of at most a day in which the Moon is down.
std::vector<TimeSpan> moonlessSpans(const TimeSpan& span, ephemeris::PtMoon& moon) {
  const double deltaT = getDeltaT(ptDateTimeForDate(dateFromModifiedJulianDay(span.start)));
  const auto [rise, set] = moon.riseSet(ephemeris::EventKind::riseSet, span.start, deltaT);
  if (rise == kAlwaysAbove) return {};
  if (rise == kAlwaysBelow) return {span};
  // Down until it rises, and again after it has set.
  const bool isUpAtStart = drawEventAtMjd(set) && !(drawEventAtMjd(rise) && rise < set);
  const double untilRise = drawEventAtMjd(rise) ? std::min(rise, span.end) : span.end;
  std::vector<TimeSpan> spans;
  if (isUpAtStart) {
    spans.push_back({set, untilRise});
  } else {
    spans.push_back({span.start, untilRise});
    if (drawEventAtMjd(set)) spans.push_back({set, span.end});
  }
  std::erase_if(spans, [](const TimeSpan& s) { return s.end <= s.start; });
  return spans;
}

std::optional<DarkNight> darkNight(const std::optional<TimeSpan>& darkness,
                                   const PtPosition& observer) {
  if (!darkness) return std::nullopt;
  ephemeris::PtMoon moon(observer);
  return DarkNight{*darkness, moonlessSpans(*darkness, moon)};
}

/// What is left of a night from a moment on; nullopt when it is over.
std::optional<DarkNight> remainder(DarkNight night, double mjd) {
  if (night.darkness.end <= mjd) return std::nullopt;
  const auto clip = [&](TimeSpan& span) { span.start = std::max(span.start, mjd); };
  clip(night.darkness);
  for (TimeSpan& span : night.moonless) clip(span);
  std::erase_if(night.moonless, [](const TimeSpan& s) { return s.end <= s.start; });
  return night;
}

/// The Sun's days before, at and after one that walks on.
class SunDays {
 public:
  SunDays(const PtPosition& observer, const Calendar& calendar)
      : sun_(observer), calendar_(calendar) {}

  /// Those around the local day of a moment.
  std::span<const SunEvent, 3> around(Date moment) {
    const LocalDay today = LocalDay::of(moment, calendar_);
    if (tomorrow_ && tomorrow_->date == today.date) {
      std::ranges::rotate(days_, days_.begin() + 1);
    } else {
      days_[0] = sunEventOfDay(sun_, today.dayAfter(-1, calendar_), calendar_);
      days_[1] = sunEventOfDay(sun_, today, calendar_);
    }
    tomorrow_ = today.dayAfter(1, calendar_);
    days_[2] = sunEventOfDay(sun_, *tomorrow_, calendar_);
    return days_;
  }

 private:
  ephemeris::PtSun sun_;
  const Calendar& calendar_;
  std::optional<LocalDay> tomorrow_;
  std::array<SunEvent, 3> days_;
};

}  // namespace

double DarkNight::moonlessHours() const {
  double hours = 0;
  for (const TimeSpan& span : moonless) hours += span.hours();
  return hours;
}

std::optional<DarkNight> nightBeginningOnDay(std::span<const SunEvent, 3> days,
                                             const PtPosition& observer, const Calendar& calendar) {
  return darkNight(darknessBetween(days[1], days[2], nightBeginningToday(days), calendar),
                   observer);
}

std::optional<DarkNight> nightEndingOnDay(std::span<const SunEvent, 3> days,
                                          const PtPosition& observer, const Calendar& calendar) {
  return darkNight(darknessBetween(days[0], days[1], nightEndingToday(days), calendar), observer);
}

bool DarkNightWish::isMetBy(const DarkNight& night) const {
  if (hours) return night.moonlessHours() >= *hours;
  return night.darkness.hours() >= kShortestWholeNight && night.moonless.size() == 1 &&
         night.moonless[0].start == night.darkness.start &&
         night.moonless[0].end == night.darkness.end;
}

DarkNightSearch nextDarkNight(const PtPosition& observer, const Calendar& calendar, Date moment,
                              const DarkNightWish& wish, const GoOn& goOn) {
  const double mjd = modifiedJulianDay(moment);
  const auto wanted = [&](const std::optional<DarkNight>& night) {
    const auto rest = night ? remainder(*night, mjd) : std::nullopt;
    return rest && wish.isMetBy(*rest) ? rest : std::nullopt;
  };
  SunDays sun(observer, calendar);
  if (const auto night = wanted(nightEndingOnDay(sun.around(moment), observer, calendar))) {
    return {FoundDarkNight{dateByAddingNumberOfDays(moment, -1, calendar), *night}};
  }
  for (int days = 0; days < kMostDarkNights; ++days) {
    if (!goOn(static_cast<double>(days) / kMostDarkNights))
      return {.found = {}, .isComplete = false};
    const Date day = dateByAddingNumberOfDays(moment, days, calendar);
    if (const auto night = wanted(nightBeginningOnDay(sun.around(day), observer, calendar))) {
      return {FoundDarkNight{day, *night}};
    }
  }
  return {};
}

}  // namespace zenivo
