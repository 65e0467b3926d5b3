#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/output/DayPicture.h"
#include "cli/output/Moments.h"
#include "cli/output/Table.h"
#include "cli/output/Terminal.h"
#include "engine/Mjd.h"

namespace zenivo::cli {
namespace {

TimeZone zone(const char* name) {
  return TimeZone::timeZoneWithName(name).value();
}

DayClock clockOf(std::int64_t year, int month, int day, const char* zoneName) {
  return DayClock({.year = year, .month = month, .day = day}, zone(zoneName));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(MomentJson, MomentsAndSentinels) {
  // 61212.157662 is 2026-06-21 03:47:02 UT.
  const Json json = momentJson(61212.157662037, zone("Europe/Paris"));
  EXPECT_EQ(json.dump(), R"({"mjd":61212.157662037,"time":"2026-06-21T05:47:02+02:00"})");
  for (const double sentinel : {kNotThisDay, kAlwaysAbove, kAlwaysBelow}) {
    const Json none = momentJson(sentinel, zone("UTC"));
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

/// A day with the Sun up from 6 to 18 o'clock, 40 degrees high at noon, and the Moon opposite.
std::vector<SkySample> equinox(int count) {
  std::vector<SkySample> samples;
  for (int i = 0; i < count; ++i) {
    const double hour = (i + 0.5) * 24 / count;
    const double sun = 40 - 80 * std::abs(hour - 12) / 12;
    samples.push_back({sun, -sun});
  }
  return samples;
}

TEST(DayPicture, ShowsTheLightOfEachHour) {
  const int count = samplesForWidth(80);
  ASSERT_EQ(count, 72);  // three columns an hour
  const auto lines = linesOf(dayPicture(equinox(count), clockOf(2026, 3, 20, "UTC"), Terminal{}));
  ASSERT_EQ(lines.size(), 10U);
  EXPECT_EQ(lines[0],
            "      ○○                                ●●●●                                ○○");
  EXPECT_THAT(lines[4], testing::HasSubstr("   0° ──"));
  // The Sun passes -18, -12, -6, -4 and +6 degrees; its slope is 2.2 degrees a column.
  std::string day;
  for (int i = 0; i < 30; ++i) day += "█";
  EXPECT_EQ(lines[7], "light           ···░░▒▓▓▓▓▓" + day + "▓▓▓▓▓▒░░···");
  EXPECT_EQ(lines[8],
            "      0        3        6        9        12       15       18       21       24");
  for (const std::string& line : lines) {
    EXPECT_LE(displayWidth(line), 80);
    EXPECT_THAT(line, testing::Not(testing::HasSubstr("\x1b")));
  }
}

TEST(DayPicture, FollowsTheClockAndTheWidth) {
  // 02:00 to 03:00 is skipped: six o'clock comes after five hours of 23.
  const auto spring =
      linesOf(dayPicture(equinox(72), clockOf(2026, 3, 29, "Europe/Paris"), Terminal{}));
  EXPECT_EQ(spring[8].find('6') - 6, 72 * 5 / 23);
  EXPECT_EQ(samplesForWidth(20), 24);
  EXPECT_EQ(samplesForWidth(1000), 96);
  const std::string coloured =
      dayPicture(equinox(24), clockOf(2026, 3, 20, "UTC"), Terminal{.hasColour = true});
  EXPECT_THAT(coloured, testing::HasSubstr("\x1b["));
  // Straight overhead and far below: nothing is drawn outside of the plot.
  const std::vector<SkySample> extremes(24, {90, -90});
  EXPECT_EQ(linesOf(dayPicture(extremes, clockOf(2026, 3, 20, "UTC"), Terminal{})).size(), 15U);
}

}  // namespace
}  // namespace zenivo::cli
