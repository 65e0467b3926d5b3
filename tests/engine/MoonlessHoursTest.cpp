#include "engine/MoonlessHours.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "engine/DateEphemeris.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

class MoonlessHours : public testing::Test {
 protected:
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }

  void observeFrom(double latitude, double longitude, const std::string& zone) {
    sun.setPosition(PtPosition(latitude, longitude));
    moon.setPosition(PtPosition(latitude, longitude));
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(zone).value());
  }

  double hoursAt(Date date) { return moonlessHoursForNightAtDate(date, sun, moon); }

  /// Minute by minute from noon to noon: the Sun's centre below -18 degrees, the
  /// Moon's upper limb below the horizon.
  double sampledHours(Date date) {
    const double start = modifiedJulianDay(dateWithNoonDateTime(date));
    const double end = modifiedJulianDay(dateWithNoonDateTime(dateByAddingNumberOfDays(date, 1)));
    const double deltaT = getDeltaT(ptDateTimeForDate(date));
    constexpr double kSin18 = 0.3090169943749474;
    constexpr double kMinute = 1.0 / 1440.0;
    int minutes = 0;
    for (double mjd = start; mjd < end; mjd += kMinute) {
      if (sun.sinAltitude(mjd, deltaT, 0.0) > -kSin18) continue;
      moon.computePosition(true, mjd, deltaT);
      minutes += moon.horizontal().elevation_ + moon.semiDiameter() < 0.0;
    }
    return minutes / 60.0;
  }

  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
};

Date noonOf(std::int32_t year, std::int32_t month, std::int32_t day) {
  return cachedCalendar().dateFromComponents(
      {.year = year, .month = month, .day = day, .hour = 12});
}

// As far as 60 degrees the Moon rises and sets every day or so.
TEST_F(MoonlessHours, AgreeWithSampledAltitudes) {
  std::mt19937_64 random(2016'11'14);
  std::uniform_real_distribution<double> latitudes(-60.0, 60.0);
  std::uniform_int_distribution<int> hours(-11, 12);
  std::uniform_int_distribution<int> days(0, 20'000);
  int partly = 0;
  for (int i = 0; i < 60; ++i) {
    const int hour = hours(random);
    const std::string zone = "Etc/GMT" + std::string(hour > 0 ? "-" : "+") +
                             std::to_string(std::abs(hour));  // POSIX: signs reversed
    observeFrom(latitudes(random), 15.0 * hour, zone);
    const Date date = dateByAddingNumberOfDays(noonOf(1990, 1, 1), days(random));
    const double sampled = sampledHours(date);
    const double computed = hoursAt(date);
    EXPECT_NEAR(computed, sampled, 5.0 / 60.0)
        << sun.getPosition().latitude << ' ' << zone << ' ' << modifiedJulianDay(date);
    partly += computed > 0.5 && computed < 6.0;
  }
  EXPECT_GT(partly, 15);
}

// Places and days at which a rule of thumb breaks.
TEST_F(MoonlessHours, NightsThatAreHardToPlace) {
  struct Case {
    const char* story;
    double latitude;
    double longitude;
    const char* zone;
    std::array<std::int32_t, 3> day;
  };
  const Case cases[] = {
      {"dusk and dawn after midnight", 48.86, 2.35, "Europe/Paris", {2024, 7, 5}},
      {"the last dusk before midnight", 48.86, 2.35, "Europe/Paris", {2024, 5, 24}},
      {"the first dusk after midnight", 48.86, 2.35, "Europe/Paris", {2024, 5, 25}},
      {"the first dusk before midnight again", 48.86, 2.35, "Europe/Paris", {2024, 7, 19}},
      // Days of 23 hours share an hour with the next window of 24, days of 25 lack one.
      {"moonrise in the shared hour", 48.86, 2.35, "Europe/Paris", {2016, 3, 27}},
      {"moonset in the shared hour", 48.86, 2.35, "Europe/Paris", {2009, 3, 29}},
      {"moonset in the lacking hour", 48.86, 2.35, "Europe/Paris", {2006, 10, 29}},
      {"moonrise in the lacking hour", 48.86, 2.35, "Europe/Paris", {1999, 10, 31}},
      {"midnight skipped", 30.04, 31.24, "Africa/Cairo", {2026, 4, 23}},
      {"southern winter", -54.8, -68.3, "America/Argentina/Ushuaia", {2024, 6, 6}},
      {"Moon up all night", -33.9, 151.2, "Australia/Sydney", {2024, 6, 21}},
  };
  for (const Case& c : cases) {
    observeFrom(c.latitude, c.longitude, c.zone);
    const Date date = noonOf(c.day[0], c.day[1], c.day[2]);
    EXPECT_NEAR(hoursAt(date), sampledHours(date), 5.0 / 60.0) << c.story;
    // Whatever the moment of the day.
    EXPECT_EQ(hoursAt(dateWithStartDateTime(date)), hoursAt(dateWithEndDateTime(date))) << c.story;
  }
}

// New Moon 2024-07-05; at Paris it is dark from 0:42 to 3:05 and no longer.
TEST_F(MoonlessHours, AShortSummerNightIsNotADayLong) {
  observeFrom(48.86, 2.35, "Europe/Paris");
  const double hours = hoursAt(noonOf(2024, 7, 8));
  EXPECT_GT(hours, 1.0);
  EXPECT_LT(hours, 3.0);
}

TEST_F(MoonlessHours, NoDarknessNoHours) {
  observeFrom(48.86, 2.35, "Europe/Paris");
  EXPECT_EQ(hoursAt(noonOf(2024, 6, 20)), 0.0);  // white nights
  observeFrom(69.65, 18.96, "Europe/Oslo");
  EXPECT_EQ(hoursAt(noonOf(2024, 6, 20)), 0.0);  // midnight sun
  observeFrom(89.0, 0.0, "GMT");
  EXPECT_EQ(hoursAt(noonOf(2024, 12, 20)), 0.0);  // polar night: neither dusk nor dawn
}

// Tromso in December, where the Moon stays up for days around full Moon
// (2024-12-15) and down around new Moon (2024-12-30).
TEST_F(MoonlessHours, MoonThatNeitherRisesNorSets) {
  observeFrom(69.65, 18.96, "Europe/Oslo");
  EXPECT_EQ(hoursAt(noonOf(2024, 12, 15)), 0.0);
  const Date newMoon = noonOf(2024, 12, 30);
  EXPECT_NEAR(hoursAt(newMoon), sampledHours(newMoon), 5.0 / 60.0);
  EXPECT_GT(hoursAt(newMoon), 10.0);
}

TEST_F(MoonlessHours, StayBetweenNothingAndTheWholeNightEverywhere) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> latitudes(-90.0, 90.0);
  for (int i = 0; i < 300; ++i) {
    // Longitude 0 with clocks of the far side of the Earth, too.
    observeFrom(latitudes(random), 0.0, i % 2 == 0 ? "GMT" : "Pacific/Auckland");
    const double hours = hoursAt(dateByAddingNumberOfDays(noonOf(2020, 1, 1), 11 * i));
    ASSERT_GE(hours, 0.0) << i;
    ASSERT_LE(hours, 24.0) << i;
  }
}

// Every order of rise, set, dusk and dawn against the overlap of intervals.
TEST_F(MoonlessHours, HoursAffectedAreTheOverlap) {
  constexpr double kBefore = -1000.0;
  constexpr double kAfter = 200'000.0;
  for (int start = 0; start < 6; ++start) {
    for (int end = start; end < 6; ++end) {
      for (int rise = -1; rise < 6; ++rise) {
        for (int set = rise; set <= 6; ++set) {
          // -1 stands for up from before, 6 for up to the end.
          const auto mjd = [](int day) { return 60000.0 + day; };
          const MoonRiseSet up{rise < 0 ? kNotThisDay : mjd(rise),
                               set > 5 ? kNotThisDay : mjd(set)};
          if (rise < 0 && (set < 0 || set > 5)) continue;
          const double from = std::max(rise < 0 ? kBefore : mjd(rise), mjd(start));
          const double to = std::min(set > 5 ? kAfter : mjd(set), mjd(end));
          EXPECT_DOUBLE_EQ(nightHoursAffectedWithMoon(up, mjd(start), mjd(end)),
                           std::max(to - from, 0.0) * 24.0)
              << rise << ' ' << set << ' ' << start << ' ' << end;
        }
      }
    }
  }
}

TEST_F(MoonlessHours, TimesThatTheMoonIsUp) {
  struct Case {
    double rise;
    double set;
    std::vector<MoonRiseSet> expected;
  };
  const Case cases[] = {
      {1.0, 2.0, {{1.0, 2.0}}},
      {2.0, 1.0, {{kNotThisDay, 1.0}, {2.0, kNotThisDay}}},
      {kNotThisDay, 1.0, {{kNotThisDay, 1.0}}},
      {1.0, kNotThisDay, {{1.0, kNotThisDay}}},
      {kAlwaysBelow, kAlwaysBelow, {}},
  };
  for (const Case& c : cases) {
    std::vector<MoonRiseSet> up;
    addMoonRiseSets(up, c.rise, c.set);
    EXPECT_EQ(up, c.expected) << c.rise << ' ' << c.set;
  }
}

}  // namespace
}  // namespace zenivo
