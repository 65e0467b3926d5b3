#include <algorithm>
#include <string_view>

#include "foundation/LocalizedString.h"
#include "planner/SunEvent.h"

namespace zenivo {
namespace {

/// A light under whose name its end is listed, and an elevation of the Sun in it.
struct Light {
  std::string_view nameKey;
  std::string_view endKey;
  double sunElevation;
};

constexpr Light kNight{"light_nighttime", "event_nighttime_end", -18};
constexpr Light kAstronomical{"light_astronomical", "event_twilight_astronomical_end", -12};
constexpr Light kNautical{"light_nautical", "event_twilight_nautical_end", -6};
constexpr Light kBlueHour{"twilight_blue_hour", "event_blue_hour_end", -4};
constexpr Light kGoldenHour{"twilight_golden_hour", "event_golden_hour_end", 6};
constexpr Light kDaytime{"light_daytime", "event_daytime_end", 90};

std::string text(std::string_view key) {
  return localizedString(key, "Ephemeris");
}

void addEventToArray(std::vector<BodyInfoEvent>& array, double atMjd, double withSunElevation,
                     std::string withName, std::string subtitle) {
  if (!drawEventAtMjd(atMjd)) return;
  BodyInfoEvent event;
  event.mjd = atMjd;
  event.name = std::move(withName);
  event.subtitle = std::move(subtitle);
  event.bodyColor = colorForSunElevation(withSunElevation);
  array.push_back(std::move(event));
}

}  // namespace

std::vector<BodyInfoEvent> SunEvent::eventsArray() const {
  std::vector<BodyInfoEvent> array;
  const auto addEnd = [&array](double mjd, const Light& light) {
    addEventToArray(array, mjd, light.sunElevation, text(light.nameKey), text(light.endKey));
  };
  addEnd(astronomicalTwilight.mjdStart(), kNight);
  addEnd(nauticalTwilight.mjdStart(), kAstronomical);
  addEnd(civilTwilight.mjdStart(), kNautical);
  addEnd(blueHour.mjdEnd(), kBlueHour);
  addEnd(goldenHour.mjdEnd(), kGoldenHour);

  addEnd(goldenHour.mjdStart(), kDaytime);
  addEnd(blueHour.mjdStart(), kGoldenHour);
  // Civil twilight ends together with the blue hour.
  addEventToArray(array, civilTwilight.mjdEnd(), kBlueHour.sunElevation, text(kBlueHour.nameKey),
                  text(kBlueHour.endKey) + "\n" + text("event_twilight_civil_end"));
  addEnd(nauticalTwilight.mjdEnd(), kNautical);
  addEnd(astronomicalTwilight.mjdEnd(), kAstronomical);
  if (astronomicalTwilight2) addEnd(astronomicalTwilight2->mjdEnd(), kAstronomical);

  std::ranges::stable_sort(array, {}, &BodyInfoEvent::mjd);
  return array;
}

}  // namespace zenivo
