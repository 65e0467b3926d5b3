#include "engine/MilkyWay.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "engine/DateEphemeris.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

class MilkyWay : public testing::Test {
 protected:
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }

  void observeFrom(double latitude, double longitude, const std::string& zone) {
    sun.setPosition(PtPosition(latitude, longitude));
    milkyWay.setPosition(PtPosition(latitude, longitude));
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(zone).value());
  }

  MilkyWayEvent visibilityAt(Date date) {
    return calculateGalacticCenterVisibility(milkyWay, sun, date);
  }

  /// The first and the last minute from noon to noon with the Sun below -18
  /// degrees and the centre above the horizon; 0 when there is none.
  std::pair<double, double> sampledFromNoon(Date noon) {
    const double start = modifiedJulianDay(noon);
    const double deltaT = getDeltaT(ptDateTimeForDate(noon));
    constexpr double kSin18 = 0.3090169943749474;
    std::pair<double, double> seen{0, 0};
    for (double mjd = start; mjd < start + 1.0; mjd += 1.0 / 1440.0) {
      if (sun.sinAltitude(mjd, deltaT, 0.0) > -kSin18) continue;
      milkyWay.computePosition(true, mjd, deltaT);
      if (milkyWay.horizontal().elevation_ < 0.0) continue;
      if (seen.first == 0) seen.first = mjd;
      seen.second = mjd;
    }
    return seen;
  }

  ephemeris::PtSun sun;
  ephemeris::PtMilkyWay milkyWay;
};

Date localNoon(std::int32_t year, std::int32_t month, std::int32_t day) {
  return cachedCalendar().dateFromComponents(
      {.year = year, .month = month, .day = day, .hour = 12});
}

void expectWindow(const MilkyWayEvent& event, const std::pair<double, double>& sampled,
                  const std::string& story) {
  if (sampled.first == 0) {
    EXPECT_EQ(event.mjdVisibilityFrom, kAlwaysBelow) << story;
    EXPECT_EQ(event.mjdVisibilityTo, kAlwaysBelow) << story;
    return;
  }
  EXPECT_NEAR((event.mjdVisibilityFrom - sampled.first) * 1440.0, 0.0, 4.0) << story;
  EXPECT_NEAR((event.mjdVisibilityTo - sampled.second) * 1440.0, 0.0, 4.0) << story;
}

// From noon and from eight in the evening the coming night counts, from one in the
// next morning still the same.
TEST_F(MilkyWay, WindowsAgreeWithSampledAltitudes) {
  std::mt19937_64 random(26'695);
  std::uniform_real_distribution<double> latitudes(-48.0, 48.0);
  std::uniform_int_distribution<int> hours(-11, 12);
  std::uniform_int_distribution<int> days(0, 15'000);
  int seen = 0;
  int unseen = 0;
  for (int i = 0; i < 60; ++i) {
    const int hour = hours(random);
    const std::string zone = "Etc/GMT" + std::string(hour > 0 ? "-" : "+") +
                             std::to_string(std::abs(hour));  // POSIX: signs reversed
    const double latitude = latitudes(random);
    observeFrom(latitude, 15.0 * hour, zone);
    const Date noon = dateByAddingNumberOfDays(localNoon(2000, 1, 1), days(random));
    const std::pair<double, double> sampled = sampledFromNoon(noon);
    const std::string story =
        std::to_string(latitude) + ' ' + zone + ' ' + std::to_string(modifiedJulianDay(noon));
    (sampled.first == 0 ? unseen : seen) += 1;
    // A few minutes of a window at either end of the night may be missed.
    if (sampled.first != 0 && sampled.second - sampled.first < 10.0 / 1440.0) continue;
    for (const double later : {0.0, 8.0, 13.0}) {
      expectWindow(visibilityAt(noon.dateByAddingTimeInterval(later * 3600.0)), sampled, story);
    }
  }
  EXPECT_GT(seen, 25);
  EXPECT_GT(unseen, 5);
}

// Nights whose dusk is after midnight, around midsummer in Paris and Ushuaia, and
// a clock change.
TEST_F(MilkyWay, NightsWithDuskAfterMidnight) {
  struct Case {
    double latitude;
    double longitude;
    const char* zone;
    std::array<std::int32_t, 3> day;
  };
  const Case cases[] = {
      {48.86, 2.35, "Europe/Paris", {2024, 5, 24}},
      {48.86, 2.35, "Europe/Paris", {2024, 5, 25}},
      {48.86, 2.35, "Europe/Paris", {2024, 7, 8}},
      {48.86, 2.35, "Europe/Paris", {2024, 7, 19}},
      {48.86, 2.35, "Europe/Paris", {2024, 6, 21}},
      {48.86, 2.35, "Europe/Paris", {2024, 3, 30}},
      {-54.8, -68.3, "America/Argentina/Ushuaia", {2024, 10, 28}},
      {-54.8, -68.3, "America/Argentina/Ushuaia", {2024, 3, 1}},
  };
  for (const Case& c : cases) {
    observeFrom(c.latitude, c.longitude, c.zone);
    const Date noon = localNoon(c.day[0], c.day[1], c.day[2]);
    const std::string story = std::string(c.zone) + ' ' + std::to_string(modifiedJulianDay(noon));
    const std::pair<double, double> sampled = sampledFromNoon(noon);
    expectWindow(visibilityAt(noon), sampled, story);
    // The night belongs to yesterday's evening until the sky begins to grow light.
    expectWindow(visibilityAt(noon.dateByAddingTimeInterval(14.0 * 3600.0)), sampled, story);
  }
}

TEST_F(MilkyWay, NotSeenAtAll) {
  observeFrom(59.91, 10.75, "Europe/Oslo");  // white night
  EXPECT_EQ(visibilityAt(localNoon(2024, 6, 15)).mjdVisibilityFrom, kAlwaysBelow);
  observeFrom(65.0, 25.5, "Europe/Helsinki");  // below the horizon
  const MilkyWayEvent event = visibilityAt(localNoon(2024, 3, 15));
  EXPECT_EQ(event.mjdVisibilityFrom, kAlwaysBelow);
  EXPECT_EQ(event.mjdVisibilityTo, kAlwaysBelow);
  EXPECT_EQ(event.mjdRise(), kAlwaysBelow);
  EXPECT_EQ(event.visibilityFromAzimuth, -1.0);
}

// In November the centre is behind the Sun; over the Alps it comes back at the end
// of January, before dawn.
TEST_F(MilkyWay, NextDateItIsVisible) {
  observeFrom(46.5, 8.0, "Europe/Zurich");
  const Date start = localNoon(2025, 11, 20);
  const std::optional<Date> next = nextDateGalacticCenterIsVisible(milkyWay, sun, start);
  ASSERT_TRUE(next);
  EXPECT_EQ(hourValue(*next), 12);
  EXPECT_GT(*next, localNoon(2026, 1, 10));
  EXPECT_LT(*next, localNoon(2026, 2, 20));
  EXPECT_NE(visibilityAt(*next).mjdVisibilityFrom, kAlwaysBelow);
  for (Date date = dateByAddingNumberOfDays(start, 1); date < *next;
       date = dateByAddingNumberOfDays(date, 1)) {
    ASSERT_EQ(visibilityAt(date).mjdVisibilityFrom, kAlwaysBelow);
  }
  // A date on which it is visible is not its own next one.
  EXPECT_EQ(nextDateGalacticCenterIsVisible(milkyWay, sun, *next),
            dateByAddingNumberOfDays(*next, 1));
}

TEST_F(MilkyWay, TheSearchEndsAfterHalfAYearAndNorthOf58Degrees) {
  // Near the south pole no night is dark from August to April.
  observeFrom(-85.0, 0.0, "GMT");
  const std::optional<Date> first =
      nextDateGalacticCenterIsVisible(milkyWay, sun, localNoon(2025, 3, 1));
  ASSERT_TRUE(first);
  EXPECT_EQ(nextDateGalacticCenterIsVisible(milkyWay, sun, dateByAddingNumberOfDays(*first, -180)),
            first);
  EXPECT_EQ(nextDateGalacticCenterIsVisible(milkyWay, sun, dateByAddingNumberOfDays(*first, -181)),
            std::nullopt);

  // So far north only from the height of an aircraft.
  for (const double latitude : {58.0, 58.01}) {
    milkyWay.setPosition(PtPosition(latitude, 10.0, 0.0, 10'000.0));
    sun.setPosition(milkyWay.getPosition());
    const auto next = nextDateGalacticCenterIsVisible(milkyWay, sun, localNoon(2025, 2, 1));
    EXPECT_EQ(next.has_value(), latitude <= 58.0) << latitude;
  }
}

}  // namespace
}  // namespace zenivo
