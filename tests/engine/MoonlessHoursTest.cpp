#include "engine/MoonlessHours.h"

#include <algorithm>

#include "engine/NightSky.h"

namespace zenivo {
namespace {

class MoonlessHours : public NightSky {
 protected:
  double hoursOf(const NightCase& night) {
    const Date noon = observe(night);
    return moonlessHoursForNightAtDate(noon, sun, moon, cachedCalendar());
  }

  /// The Moon's upper limb below the horizon.
  double sampledHours(const NightCase& night) {
    int minutes = 0;
    forEachDarkMinute(observe(night), [&](double mjd, double deltaT) {
      moon.computePosition(true, mjd, deltaT);
      minutes += moon.horizontal().elevation_ + moon.semiDiameter() < 0.0;
    });
    return minutes / 60.0;
  }
};

// As far as 60 degrees the Moon rises and sets every day or so.
TEST_F(MoonlessHours, AgreeWithSampledAltitudes) {
  int partly = 0;
  for (int i = 0; i < 60; ++i) {
    const NightCase night = randomNight(-60.0, 60.0);
    const double hours = hoursOf(night);
    EXPECT_NEAR(hours, sampledHours(night), 5.0 / 60.0) << night.story;
    partly += hours > 0.5 && hours < 6.0;
  }
  EXPECT_GT(partly, 15);
}

TEST_F(MoonlessHours, NightsThatAreHardToPlace) {
  const std::string paris = "Europe/Paris";
  const NightCase cases[] = {
      {"dusk and dawn after midnight", 48.86, 2.35, paris, {2024, 7, 5}},
      {"the last dusk before midnight", 48.86, 2.35, paris, {2024, 5, 14}},
      {"a day without dusk", 48.86, 2.35, paris, {2024, 5, 15}},
      {"the last dusk after midnight", 48.86, 2.35, paris, {2024, 7, 29}},
      {"a day with two dusks", 48.86, 2.35, paris, {2024, 7, 30}},
      {"dusk and dawn by clocks six hours behind", 48.86, 2.35, "America/New_York", {2024, 5, 10}},
      {"a white night", 48.86, 2.35, paris, {2024, 6, 20}},
      // Days of 23 hours share an hour with the next window of 24, days of 25 lack one.
      {"moonrise in the shared hour", 48.86, 2.35, paris, {2016, 3, 27}},
      {"moonset in the shared hour", 48.86, 2.35, paris, {2009, 3, 29}},
      {"moonset in the lacking hour", 48.86, 2.35, paris, {2006, 10, 29}},
      {"moonrise in the lacking hour", 48.86, 2.35, paris, {1999, 10, 31}},
      {"midnight skipped", 30.04, 31.24, "Africa/Cairo", {2026, 4, 23}},
      {"a southern winter", -54.8, -68.3, "America/Argentina/Ushuaia", {2024, 6, 6}},
      {"Moon up all night", -33.9, 151.2, "Australia/Sydney", {2024, 6, 21}},
      {"Moon up all day", 69.65, 18.96, "Europe/Oslo", {2024, 12, 15}},
      {"Moon down all day", 69.65, 18.96, "Europe/Oslo", {2024, 12, 30}},
      // Neither dusk nor dawn, by clocks of noon and of midnight; its first and last day.
      {"polar night", -90.0, 0.0, "GMT", {2026, 7, 8}},
      {"polar night", 89.0, 180.0, "GMT", {2024, 12, 27}},
      {"the first day dark to its end", -85.5, 0.0, "GMT", {2026, 6, 9}},
      {"the last day dark from its begin", -85.5, 0.0, "GMT", {2026, 7, 7}},
      {"midnight sun", 69.65, 18.96, "Europe/Oslo", {2024, 6, 20}},
      // Until 1858 every mjd is negative, below the sentinels.
      {"a negative mjd", 48.86, 2.35, paris, {1830, 3, 24}},
      {"a negative mjd, a day with two dusks", 48.86, 2.35, "Etc/GMT-2", {1824, 7, 31}},
  };
  for (const NightCase& night : cases) {
    const double hours = hoursOf(night);
    EXPECT_NEAR(hours, sampledHours(night), 5.0 / 60.0) << night.story;
    const Date date = observe(night);
    for (const Date moment : {dateWithStartDateTime(date, cachedCalendar()),
                              dateWithEndDateTime(date, cachedCalendar())}) {
      EXPECT_EQ(moonlessHoursForNightAtDate(moment, sun, moon, cachedCalendar()), hours)
          << night.story;
    }
  }
}

TEST_F(MoonlessHours, StayBetweenNothingAndTheWholeNightEverywhere) {
  for (int i = 0; i < 300; ++i) {
    NightCase night = randomNight(-90.0, 90.0);
    if (i % 2 == 0) night.zone = "Pacific/Auckland";  // clocks of another place
    const double hours = hoursOf(night);
    ASSERT_GE(hours, 0.0) << night.story;
    ASSERT_LE(hours, 24.0) << night.story;
  }
}

// Every order of rise, set, dusk and dawn against the overlap of intervals; -1
// stands for up from before, 6 for up to the end.
TEST_F(MoonlessHours, HoursAffectedAreTheOverlap) {
  const auto mjd = [](int day) { return 60000.0 + day; };
  for (int code = 0; code < 8 * 8 * 6 * 6; ++code) {
    const int rise = code % 8 - 1;
    const int set = code / 8 % 8 - 1;
    const int dusk = code / 64 % 6;
    const int dawn = code / 384;
    const bool whole = rise < 0 && (set < 0 || set > 5);
    if (set < rise || rise > 5 || dawn < dusk || whole) continue;
    const MoonRiseSet up{rise < 0 ? kNotThisDay : mjd(rise), set > 5 ? kNotThisDay : mjd(set)};
    const int overlap = std::max(std::min(set, dawn) - std::max(rise, dusk), 0);
    EXPECT_DOUBLE_EQ(nightHoursAffectedWithMoon(up, mjd(dusk), mjd(dawn)), overlap * 24.0) << code;
  }
}

}  // namespace
}  // namespace zenivo
