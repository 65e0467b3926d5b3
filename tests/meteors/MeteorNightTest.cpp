#include "meteors/MeteorNight.h"

#include <gtest/gtest.h>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "meteors/MeteorMoment.h"
#include "meteors/Places.h"

namespace zenivo {
namespace {

/// A day of 24 hours that opens at `midnight`, with sunrise and sunset given in hours of
/// it or as sentinels.
MeteorDayInfoData day(double midnight, double rise, double set) {
  const auto mjd = [&](double hours) {
    return drawEventAtMjd(hours) ? midnight + hours / 24.0 : hours;
  };
  MeteorDayInfoData info;
  info.mjdStart = midnight;
  info.mjdEnd = midnight + 1.0;
  info.mjdSunRise = mjd(rise);
  info.mjdSunSet = mjd(set);
  return info;
}

constexpr double kOpens = 60000.0;
constexpr double kUp = kAlwaysAbove;
constexpr double kDown = kAlwaysBelow;
constexpr double kNone = kNotThisDay;

// Hours from today's midnight on.  Start and end 0: no night.
TEST(NightWindow, OfAMoment) {
  struct Day {
    double rise, set;
  };
  struct Case {
    const char* what;
    Day yesterday, today, tomorrow;
    double hour, start, end;
  };
  const Case cases[] = {
      {"before sunrise", {6, 18}, {6, 18}, {6, 18}, 0, -6, 6},
      {"at sunrise", {6, 18}, {6, 18}, {6, 18}, 6, 18, 30},
      {"polar day", {kUp, kUp}, {kUp, kUp}, {kUp, kUp}, 10, 0, 0},
      {"polar night, morning", {kDown, kDown}, {kDown, kDown}, {kDown, kDown}, 3, -12, 12},
      {"polar night, evening", {kDown, kDown}, {kDown, kDown}, {kDown, kDown}, 12, 12, 36},
      {"first sunrise of the year", {kDown, kDown}, {11.9, 12.1}, {11.5, 12.4}, 3, -12, 11.9},
      {"last sunset of the year", {11.5, 12.4}, {11.9, 12.1}, {kDown, kDown}, 15, 12.1, 36},
      {"sunset after midnight, next", {2, 0.1}, {1.9, 0.2}, {1.8, 0.3}, 12, 24.3, 25.8},
      {"sunset slides past midnight", {3, 23.98}, {2.9, kNone}, {2.8, 0.1}, 12, 24.1, 26.8},
      {"last sunrise before the polar day", {1, 0.5}, {0.9, 0.7}, {kUp, kUp}, 12, 0, 0},
      {"first night after it", {kUp, kUp}, {1.3, 0.5}, {1.5, 0.2}, 12, 24.2, 25.5},
      {"a clock of the other side of the Earth", {21, 8}, {21, 8}, {21, 8}, 5, 8, 21},
      {"no sunrise this day, morning", {23.9, 12}, {kNone, 12.1}, {0.1, 12.2}, 5, -12, -0.1},
      {"no sunrise this day, evening", {23.9, 12}, {kNone, 12.1}, {0.1, 12.2}, 13, 12.1, 24.1},
      {"after the pole's sunset", {kUp, kUp}, {kNone, 9}, {kDown, kDown}, 13, 9, 36},
      {"after the pole's sunrise", {kDown, kDown}, {9, kNone}, {kUp, kUp}, 13, 0, 0},
  };
  for (const Case& c : cases) {
    const MeteorDays days{day(kOpens - 1, c.yesterday.rise, c.yesterday.set),
                          day(kOpens, c.today.rise, c.today.set),
                          day(kOpens + 1, c.tomorrow.rise, c.tomorrow.set)};
    const MjdRateWindow window = calculateMjdRateStart(kOpens + c.hour / 24.0, days);
    EXPECT_EQ(window.isNight(), c.end != 0) << c.what;
    if (c.end == 0) continue;
    EXPECT_NEAR((window.start - kOpens) * 24.0, c.start, 1e-6) << c.what;
    EXPECT_NEAR((window.end - kOpens) * 24.0, c.end, 1e-6) << c.what;
  }
}

MeteorDays daysAt(const ZVLocation& place, Date date, const Calendar& calendar) {
  ephemeris::PtSun sun(place.getPtPosition());
  ephemeris::PtMoon moon(place.getPtPosition());
  MeteorDays days;
  for (int i = 0; i < 3; ++i) {
    MeteorDayInfoData& info = days[static_cast<std::size_t>(i)];
    info.mjdStart = mjdAtLocalMidnight(date, i - 1, calendar);
    info.mjdEnd = mjdAtLocalMidnight(date, i, calendar);
    calculateTwilightAndNightIntervals(info, sun, moon, calendar);
    calculateMoonElevations(info, moon);
  }
  return days;
}

// Through a year, at places and with clocks of all kinds: a night's window has the Sun
// below the horizon from end to end, concerns its moment, and is followed by the next.
TEST(NightWindow, NeverReachesIntoDaylight) {
  const std::pair<const char*, ZVLocation> cases[] = {
      {"America/Anchorage", placeAt(64.84, -147.72)},  // sunset after midnight in June
      {"Atlantic/Reykjavik", placeAt(66.1, -20.0)},
      {"Europe/Oslo", placeAt(69.65, 18.96)},
      {"Europe/Paris", placeAt(-36.85, 174.76)},  // Auckland seen from Paris
      {"UTC", placeAt(89.9, 10)},
      {"UTC", placeAt(-90, 0)},
      {"Atlantic/Canary", kTeide},
  };
  for (const auto& [name, place] : cases) {
    const Calendar calendar(zoneNamed(name));
    ephemeris::PtSun sun(place.getPtPosition());
    const auto sunAt = [&](double mjd) {
      sun.computePosition(true, mjd, 0.0008);
      return sun.horizontal().elevation_;
    };
    for (int n = 0; n < 365; n += 3) {
      const Date date = dateByAddingNumberOfDays(firstDayOfYear(2026, calendar), n, calendar);
      const MeteorDays days = daysAt(place, date, calendar);
      for (const double hour : {0.0, 5.0, 12.5, 24.0}) {
        const double mjd = days[Today].mjdStart + hour / 24.0;
        const MjdRateWindow window = calculateMjdRateStart(mjd, days);
        if (!window.isNight()) continue;
        ASSERT_LT(window.start, window.end) << name << ' ' << n;
        const double margin = 3.0 / 1440.0;  // the search's parabola, at grazing places
        for (double t = window.start + margin; t < window.end - margin; t += 0.02) {
          ASSERT_LT(sunAt(t), 0.3) << name << " day " << n << " hour " << hour;
        }
      }
    }
  }
}

TEST(DayInfo, IntervalsAndCurves) {
  const Calendar calendar(zoneNamed("Europe/Berlin"));
  // 2026-03-29: the clock leaves out an hour.
  const Date date = calendar.dateFromComponents({2026, 3, 29, 12, 0, 0});
  const MeteorDayInfoData info = daysAt(placeAt(52.5, 13.4), date, calendar)[Today];
  EXPECT_NEAR(info.mjdEnd - info.mjdStart, 23.0 / 24.0, 1e-9);
  ASSERT_EQ(info.elevationsAndRates.size(), 145U);
  EXPECT_EQ(info.elevationsAndRates.front().mjd, info.mjdStart);
  EXPECT_NEAR(info.elevationsAndRates.back().mjd, info.mjdEnd, 1e-9);
  ASSERT_EQ(info.nightIntervals.size(), 2U);
  ASSERT_EQ(info.twilightIntervals.size(), 2U);
  EXPECT_EQ(info.twilightIntervals[0], (MeteorGraphInterval{info.mjdStart, info.mjdSunRise}));
  EXPECT_EQ(info.twilightIntervals[1], (MeteorGraphInterval{info.mjdSunSet, info.mjdEnd}));
  EXPECT_LT(info.nightIntervals[0].mjdTo, info.mjdSunRise);
  EXPECT_GT(info.nightIntervals[1].mjdFrom, info.mjdSunSet);

  const auto at = [&](double latitude, int month) {
    const Date day = calendar.dateFromComponents({2026, month, 21, 12, 0, 0});
    return daysAt(placeAt(latitude, 13.4), day, calendar)[Today];
  };
  // White nights: no astronomical dark, and the galactic centre is not seen.
  const MeteorDayInfoData white = at(54.0, 6);
  EXPECT_TRUE(white.nightIntervals.empty());
  EXPECT_EQ(white.twilightIntervals.size(), 2U);
  EXPECT_EQ(white.mjdGcVisibilityStart, kAlwaysBelow);
  EXPECT_TRUE(at(78.0, 6).twilightIntervals.empty());
  const MeteorDayInfoData polarNight = at(78.0, 12);
  EXPECT_EQ(polarNight.twilightIntervals,
            (std::vector<MeteorGraphInterval>{{polarNight.mjdStart, polarNight.mjdEnd}}));
  const MeteorDayInfoData south = at(-33.0, 6);
  EXPECT_GT(south.mjdGcVisibilityEnd, south.mjdGcVisibilityStart);
}

// Reykjavik's clock sets the Sun after midnight around the solstice, and in July twice in
// one day once.  The second sunset belongs to that day's evening.
TEST(DayInfo, TwoSunsetsInOneDay) {
  const Calendar calendar(zoneNamed("Atlantic/Reykjavik"));
  int found = 0;
  for (int n = 150; n < 220; ++n) {
    const Date date = dateByAddingNumberOfDays(firstDayOfYear(2026, calendar), n, calendar);
    const MeteorDays days = daysAt(placeAt(64.13, -21.9), date, calendar);
    const MeteorDayInfoData& today = days[Today];
    if (today.mjdSunSet2 == kAlwaysBelow) continue;
    ++found;
    EXPECT_LT(today.mjdSunSet, today.mjdSunRise);
    EXPECT_GT(today.mjdSunSet2, today.mjdStart + 0.95);
    EXPECT_EQ(calculateMjdRateStart(today.mjdStart + 0.5, days).start, today.mjdSunSet2);
    ASSERT_EQ(today.twilightIntervals.size(), 2U);
    EXPECT_EQ(today.twilightIntervals[1].mjdFrom, today.mjdSunSet2);
  }
  EXPECT_EQ(found, 1);
}

}  // namespace
}  // namespace zenivo
