#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "answers/common/Moments.h"
#include "commands/common/Clock.h"
#include "commands/common/Table.h"
#include "commands/common/Terminal.h"
#include "commands/common/Words.h"
#include "support/Times.h"
#include "time/Mjd.h"

namespace zenivo::cli {
namespace {

DayClock clockOf(std::int64_t year, int month, int day, const char* zoneName) {
  return DayClock({.year = year, .month = month, .day = day}, zoneNamed(zoneName));
}

TEST(MomentJson, MomentsAndSentinels) {
  // 61212.157662 is 2026-06-21 03:47:02 UT.
  const Json json = momentJson(61212.157662037, zoneNamed("Europe/Paris"));
  EXPECT_EQ(json.dump(), R"({"mjd":61212.157662037,"time":"2026-06-21T05:47:02+02:00"})");
  for (const double sentinel : {kNotThisDay, kAlwaysAbove, kAlwaysBelow}) {
    const Json none = momentJson(sentinel, zoneNamed("UTC"));
    EXPECT_EQ(none["mjd"], sentinel);
    EXPECT_TRUE(none["time"].is_null());
  }
}

TEST(DayClock, TimesToTheNearestMinute) {
  constexpr double kMidnight = 61211 + 22 / 24.0;  // 2026-06-21 00:00 in Paris
  constexpr double kSecond = 1 / 86400.0;
  const DayClock clock = clockOf(2026, 6, 21, "Europe/Paris");
  const std::pair<double, const char*> cases[] = {
      {kMidnight + 0.25 + 29 * kSecond, "06:00"},
      {kMidnight + 0.25 + 31 * kSecond, "06:01"},
      {kMidnight + 1 - 31 * kSecond, "23:59"},
      {kMidnight + 1 - 29 * kSecond, "24:00"},
      {kMidnight + 1 + 31 * kSecond, "00:01 +1d"},
      {kMidnight - 31 * kSecond, "23:59 -1d"},
      {kMidnight - 29 * kSecond, "00:00"},
      {kNotThisDay, "-"},
      {kAlwaysAbove, "-"},
  };
  for (const auto& [mjd, text] : cases) EXPECT_EQ(clock.time(mjd), text) << mjd;
  // Amsterdam kept UT+0:19:32 until 1937: the minute is that of its own clock.
  const DayClock amsterdam = clockOf(1900, 1, 1, "Europe/Amsterdam");
  EXPECT_EQ(amsterdam.time(15020 + 12 / 24.0), "12:20");
}

TEST(MomentTitle, KeepsTheDayOfTheMoment) {
  // 2025-05-20 11:59:54 UT, and a minute before.
  constexpr double kMoment = 60815.49992602666;
  const TimeZone zone = zoneNamed("Etc/GMT-12");
  EXPECT_EQ(momentTitle(kMoment, zone), "Tuesday 20 May 2025, 24:00 UTC+12:00");
  EXPECT_EQ(momentTitle(kMoment - 1 / 1440.0, zone), "Tuesday 20 May 2025, 23:59 UTC+12:00");
}

TEST(DayClock, OffsetsAndLengths) {
  struct Case {
    DayClock clock;
    const char* offset;
    double hours;
  };
  const Case cases[] = {
      {clockOf(2026, 6, 21, "Europe/Paris"), "UTC+02:00", 24},
      {clockOf(2026, 3, 29, "Europe/Paris"), "UTC+01:00, then UTC+02:00", 23},
      {clockOf(2026, 10, 25, "Europe/Paris"), "UTC+02:00, then UTC+01:00", 25},
      {clockOf(2026, 6, 21, "America/St_Johns"), "UTC-02:30", 24},
      {clockOf(1900, 1, 1, "Europe/Paris"), "UTC+00:09:21", 24},
      {clockOf(2026, 3, 8, "America/Havana"), "UTC-04:00", 23},  // begins with the jump
      {clockOf(2011, 12, 29, "Pacific/Apia"), "UTC-10:00", 24},  // the 31st follows
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.clock.offset(), c.offset);
    EXPECT_EQ(c.clock.end().timeIntervalSinceDate(c.clock.start()), c.hours * 3600) << c.offset;
  }
}

TEST(Table, ColumnsLineUp) {
  Table table({{"time"}, {"azimuth", Align::right}, {""}});
  EXPECT_TRUE(table.isEmpty());
  table.addRow({"05:47", "54°", "rise"});
  table.addRow({"-", "301°"});
  EXPECT_EQ(table.text(Terminal{}),
            "  time   azimuth\n"
            "  05:47      54°  rise\n"
            "  -         301°\n");
}

TEST(Styles, OnlyWithColour) {
  EXPECT_EQ(styled("Sun", Style::sun, Terminal{}), "Sun");
  EXPECT_EQ(styled("Sun", Style::heading, Terminal{.hasColour = true}), "\x1b[1mSun\x1b[0m");
  EXPECT_EQ(styled("Sun", Style::plain, Terminal{.hasColour = true}), "Sun");
  EXPECT_EQ(displayWidth("48°N ●"), 6);
}

TEST(Words, NoMinusZeroAndNoFullTurn) {
  EXPECT_EQ(degrees(-0.27), "0°");
  EXPECT_EQ(degrees(-0.27, 1), "-0.3°");
  EXPECT_EQ(bearing(359.6), "0°");
  EXPECT_EQ(bearing(359.6, 1), "359.6°");
  EXPECT_EQ(bearing(359.996, 2), "0.00°");
  EXPECT_EQ(kilometres(384399.5), "384,400 km");
  EXPECT_EQ(phaseName(-1), "");
  EXPECT_EQ(phaseName(2), "Full Moon");
}

}  // namespace
}  // namespace zenivo::cli
