#include "commands/sky/DayPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "support/Times.h"

namespace zenivo::cli {
namespace {

DayClock clockOf(std::int64_t year, int month, int day, const char* zoneName) {
  return DayClock({.year = year, .month = month, .day = day}, zoneNamed(zoneName));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
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
