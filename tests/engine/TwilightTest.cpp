#include "engine/Twilight.h"

#include <gtest/gtest.h>

#include <tuple>

#include "engine/LightBands.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using ephemeris::PtSun;

TEST(LightBands, TheUpperLimitBelongsToTheBand) {
  using enum LightBand;
  const std::tuple<double, LightBand, const char*> cases[] = {
      {90, daytime, "Daytime"},       {6.0000001, daytime, "Daytime"},
      {6, goldenHour, "Golden hour"}, {-4, blueHour, "Blue hour"},
      {-90, nighttime, "Night"},      {-6, nautical, "Nautical twilight"},
      {-18, nighttime, "Night"},      {-12, astronomical, "Astronomical twilight"}};
  for (const auto& [elevation, band, name] : cases) {
    EXPECT_EQ(lightBandForSunElevation(elevation), band) << elevation;
    EXPECT_EQ(lightTypeForSunElevation(elevation), name) << elevation;
  }
  // The colour changes where the name does.
  for (double e = -20.0; e < 10.0; e += 0.125) {
    EXPECT_EQ(colorForSunElevation(e) == colorForSunElevation(e + 0.125),
              lightTypeKeyForSunElevation(e) == lightTypeKeyForSunElevation(e + 0.125))
        << e;
  }
}

/// The twilights of a local day at a place, in its zone.
class TwilightsOfDay : public testing::Test {
 protected:
  Twilights at(const char* zone, double latitude, double longitude, const PtDateTime& noon) {
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(zone).value());
    const Date start = dateWithStartDateTime(dateWithPtDateTime(noon), cachedCalendar());
    mjdAt0_ = modifiedJulianDay(start);
    sun_.setPosition(PtPosition(latitude, longitude));
    return calculateTwilightsForMjd(mjdAt0_, getDeltaT(ptDateTimeForDate(start)),
                                    dayValue(start, cachedCalendar()), sun_, cachedCalendar());
  }
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }

  double mjdAt0_ = 0;
  PtSun sun_;
};

TEST_F(TwilightsOfDay, HighLatitudes) {
  const Twilights june = at("GMT", 60.0, 0.0, {2026, 6, 21, 12, 0});
  EXPECT_EQ(june.mjdAstronomicalTwStart, kAlwaysAbove);
  EXPECT_EQ(june.mjdNautTwEnd, kAlwaysAbove);
  EXPECT_EQ(june.mjdAstronomicalTwEnd2, kAlwaysBelow);
  EXPECT_TRUE(drawEventAtMjd(june.mjdCivilTwEnd) || june.mjdCivilTwEnd == kAlwaysAbove);
  const Twilights december = at("GMT", 67.5, 0.0, {2026, 12, 21, 12, 0});
  EXPECT_EQ(december.mjdGoldenHourStart, kAlwaysBelow);
  EXPECT_EQ(december.mjdGoldenHourEnd, kAlwaysBelow);
  EXPECT_TRUE(drawEventAtMjd(december.mjdBlueHourStart));
}

// Mean time of Greenwich in a zone whose clocks were 1 min 15 s behind it: midnight falls
// between the minutes, and the day of the second dusk is told by it, not by the minute.
TEST_F(TwilightsOfDay, ASecondDuskByClocksWithSeconds) {
  int secondDusk = 0;
  for (int day = 1; day <= 31; ++day) {
    const Twilights t = at("Europe/London", 49.5, -5.0, {1840, 7, day, 12, 0});
    if (t.mjdAstronomicalTwEnd2 == kAlwaysBelow) continue;
    ++secondDusk;
    EXPECT_LT(t.mjdAstronomicalTwEnd2, mjdAt0_ + 1.0) << day;
  }
  EXPECT_EQ(secondDusk, 1);
}

// When dusk moves over midnight there is a day with two, and the days before have
// theirs early in the morning.  48.2 north, in a zone whose noon is late.
TEST_F(TwilightsOfDay, ASecondDusk) {
  int duskAfterMidnight = 0;
  int secondDusk = 0;
  for (int day = 1; day <= 31; ++day) {
    const Twilights t = at("Europe/Paris", 48.2, -2.0, {2026, 8, day, 12, 0});
    if (t.mjdAstronomicalTwEnd2 != kAlwaysBelow) {
      ++secondDusk;
      EXPECT_LT(t.mjdAstronomicalTwEnd, t.mjdAstronomicalTwStart) << day;
      EXPECT_GT(t.mjdAstronomicalTwEnd2, mjdAt0_ + 23.0 / 24.0) << day;
      EXPECT_LT(t.mjdAstronomicalTwEnd2, mjdAt0_ + 1.0) << day;
      EXPECT_EQ(dayValue(dateFromModifiedJulianDay(t.mjdAstronomicalTwEnd2), cachedCalendar()),
                day);
    } else if (drawEventAtMjd(t.mjdAstronomicalTwEnd) &&
               t.mjdAstronomicalTwEnd < t.mjdAstronomicalTwStart) {
      ++duskAfterMidnight;
      EXPECT_LT(t.mjdAstronomicalTwEnd, mjdAt0_ + 0.2) << day;
    }
  }
  EXPECT_GT(duskAfterMidnight, 0);
  EXPECT_EQ(secondDusk, 1);
}

// Without a dusk in either window nothing may be taken for one, whatever the day of
// the month that the sentinel's number would name.
TEST_F(TwilightsOfDay, ASecondDuskIsNeverASentinel) {
  for (double latitude = 47.5; latitude < 70.0; latitude += 0.5) {
    for (int day = 1; day <= 31; ++day) {
      for (const int month : {5, 7, 8}) {
        const double dusk =
            at("Europe/Paris", latitude, 15.0, {2026, month, day, 12, 0}).mjdAstronomicalTwEnd2;
        ASSERT_TRUE(dusk == kAlwaysBelow || dusk > mjdAt0_) << latitude << " " << day;
      }
    }
  }
}

}  // namespace
}  // namespace zenivo
