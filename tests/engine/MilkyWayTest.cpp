#include "engine/MilkyWay.h"

#include <utility>

#include "engine/NightSky.h"

namespace zenivo {
namespace {

class MilkyWay : public NightSky {
 protected:
  MilkyWayEvent visibilityAt(Date date) {
    return calculateGalacticCenterVisibility(milkyWay, sun, date, cachedCalendar());
  }
  bool visible(Date date) { return visibilityAt(date).mjdVisibilityFrom != kAlwaysBelow; }

  /// Holds the night that begins after `noon` against the first and the last minute
  /// of darkness in which the centre is above the horizon; true when it is seen.  At
  /// noon and in the evening the coming night counts, in the small hours still the
  /// same.
  bool expectWindow(const NightCase& night) {
    const Date noon = observe(night);
    std::pair<double, double> seen{0, 0};
    forEachDarkMinute(noon, [&](double mjd, double deltaT) {
      milkyWay.computePosition(true, mjd, deltaT);
      if (milkyWay.horizontal().elevation_ < 0.0) return;
      if (seen.first == 0) seen.first = mjd;
      seen.second = mjd;
    });
    for (const double hours : {0.0, 8.0, 13.0}) {
      const MilkyWayEvent event = visibilityAt(noon.dateByAddingTimeInterval(hours * 3600.0));
      if (event.mjdVisibilityFrom == kAlwaysBelow) {
        EXPECT_EQ(event.mjdRise(), kAlwaysBelow) << night.story;
      }
      if (seen.first == 0) {
        // At most a window that slipped between two minutes.
        EXPECT_LT((event.mjdVisibilityTo - event.mjdVisibilityFrom) * 1440.0, 4.0) << night.story;
      } else {
        EXPECT_NEAR((event.mjdVisibilityFrom - seen.first) * 1440.0, 0.0, 4.0) << night.story;
        EXPECT_NEAR((event.mjdVisibilityTo - seen.second) * 1440.0, 0.0, 4.0) << night.story;
      }
    }
    return seen.first != 0;
  }
};

// From beyond 61 degrees south the centre never sets; it does not set and rise in
// the same night anywhere.
TEST_F(MilkyWay, WindowsAgreeWithSampledAltitudes) {
  int seen = 0;
  for (int i = 0; i < 60; ++i) seen += expectWindow(randomNight(-62.0, 48.0));
  EXPECT_GT(seen, 20);
  EXPECT_LT(seen, 55);
}

TEST_F(MilkyWay, NightsThatAreHardToPlace) {
  const std::string paris = "Europe/Paris";
  const NightCase cases[] = {
      {"the last dusk before midnight", 48.86, 2.35, paris, {2024, 5, 14}},
      {"a day without dusk", 48.86, 2.35, paris, {2024, 5, 15}},
      {"dusk after midnight", 48.86, 2.35, paris, {2024, 7, 8}},
      {"the last dusk after midnight", 48.86, 2.35, paris, {2024, 7, 29}},
      {"a day with two dusks", 48.86, 2.35, paris, {2024, 7, 30}},
      {"a white night", 48.86, 2.35, paris, {2024, 6, 21}},
      {"clocks put forward", 48.86, 2.35, paris, {2024, 3, 30}},
      {"a southern spring", -54.8, -68.3, "America/Argentina/Ushuaia", {2024, 10, 28}},
      {"below the horizon", 65.0, 25.5, "Europe/Helsinki", {2024, 3, 15}},
      // Until 1858 every mjd is negative, below the sentinels.
      {"a negative mjd", 48.86, 2.35, paris, {1830, 5, 10}},
      {"a negative mjd, a day with two dusks", 48.86, 2.35, "Etc/GMT-2", {1824, 7, 31}},
  };
  for (const NightCase& night : cases) expectWindow(night);
}

// At the poles of the southern winter the Sun stays below -18 degrees for weeks, and the
// centre, 29 degrees and more above the horizon, is seen from noon to noon; on the last
// days before them from dusk.
TEST_F(MilkyWay, APolarNightIsSeenToTheEndsOfItsDays) {
  const struct {
    double latitude;
    int month, day;
    bool fromNoon, toNoon;
  } cases[] = {{-90.0, 6, 21, true, true},
               {-85.5, 6, 21, true, true},
               {-85.5, 6, 4, false, true},
               {-85.5, 7, 7, true, false},
               {-85.5, 6, 1, false, false}};
  for (const auto& c : cases) {
    const Date noon = observe({"", c.latitude, 0.0, "GMT", {2026, c.month, c.day}});
    const double start = modifiedJulianDay(noon);
    const MilkyWayEvent event = visibilityAt(noon);
    EXPECT_EQ(event.mjdVisibilityFrom == start, c.fromNoon) << c.latitude << " " << c.day;
    EXPECT_EQ(event.mjdVisibilityTo == start + 1.0, c.toNoon) << c.latitude << " " << c.day;
    EXPECT_GE(event.mjdVisibilityFrom, start);
    EXPECT_LE(event.mjdVisibilityTo, start + 1.0);
    EXPECT_GT(event.mjdVisibilityTo - event.mjdVisibilityFrom, 0.8);
    const Date dayBefore = dateByAddingNumberOfDays(noon, -1, cachedCalendar());
    EXPECT_EQ(nextDateGalacticCenterIsVisible(milkyWay, sun, dayBefore, cachedCalendar()), noon);
  }
}

// Where the Sun stays below -12 degrees, no morning ends a night: the coming one
// counts, in the years of negative mjd, too.
TEST_F(MilkyWay, AWinterWithoutNauticalTwilight) {
  for (const int year : {1830, 2030}) {
    const Date noon = observe({"", -80.0, 0.0, "GMT", {year, 6, 21}});
    EXPECT_GT(visibilityAt(noon).mjdVisibilityFrom, modifiedJulianDay(noon)) << year;
  }
}

// In November the centre is behind the Sun; over the Alps it comes back at the end
// of January, before dawn.
TEST_F(MilkyWay, NextDateItIsVisible) {
  const Date start = observe({"", 46.5, 8.0, "Europe/Zurich", {2025, 11, 20}});
  const Date next = nextDateGalacticCenterIsVisible(milkyWay, sun, start, cachedCalendar()).value();
  EXPECT_EQ(monthValue(next, cachedCalendar()), 1);
  EXPECT_EQ(hourValue(next, cachedCalendar()), 12);
  EXPECT_TRUE(visible(next));
  for (Date date = start; date < next; date = dateByAddingNumberOfDays(date, 1, cachedCalendar())) {
    ASSERT_FALSE(visible(date)) << dayValue(date, cachedCalendar());
  }
  // A date on which it is visible is not its own next one.
  EXPECT_EQ(nextDateGalacticCenterIsVisible(milkyWay, sun, next, cachedCalendar()),
            dateByAddingNumberOfDays(next, 1, cachedCalendar()));
}

TEST_F(MilkyWay, TheSearchEndsAfterHalfAYearAndNorthOf58Degrees) {
  // Near the south pole no night is dark from August to April.
  const Date march = observe({"", -85.0, 0.0, "GMT", {2025, 3, 1}});
  const auto nextFrom = [&](Date date) {
    return nextDateGalacticCenterIsVisible(milkyWay, sun, date, cachedCalendar());
  };
  const Date first = nextFrom(march).value();
  EXPECT_EQ(nextFrom(dateByAddingNumberOfDays(first, -180, cachedCalendar())), first);
  EXPECT_EQ(nextFrom(dateByAddingNumberOfDays(first, -181, cachedCalendar())), std::nullopt);

  // So far north only from the height of an aircraft.
  for (const double latitude : {58.0, 58.01}) {
    milkyWay.setPosition(PtPosition(latitude, 10.0, 0.0, 10'000.0));
    sun.setPosition(milkyWay.getPosition());
    EXPECT_EQ(nextFrom(march).has_value(), latitude <= 58.0) << latitude;
  }

  // Half past two in the night, which the clocks of Paris skip on March 30.
  const Date night = observe({"", -85.0, 0.0, "Europe/Paris", {2025, 3, 1}})
                         .dateByAddingTimeInterval(-9.5 * 3600.0);
  EXPECT_EQ(hourValue(nextFrom(night).value(), cachedCalendar()), 2);
}

}  // namespace
}  // namespace zenivo
