#include "commands/sky/DayPicture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string_view>

#include "engine/LightBands.h"

namespace zenivo::cli {
namespace {

constexpr int kAxisWidth = 6;  // the elevations to the left of the plot
constexpr int kDegreesPerRow = 10;
constexpr int kLowestRow = -2;    // -20 degrees
constexpr int kLabelledRows = 3;  // every 30 degrees
constexpr int kHoursPerLabel = 3;

struct Cell {
  std::string_view text = " ";
  Style style = Style::plain;
};

using Line = std::vector<Cell>;

struct Light {
  std::string_view text;
  Style style;
  std::string_view name;
};

/// The brighter the light the fuller the character.
Light lightOf(LightBand band) {
  switch (band) {
    case LightBand::daytime:
      return {"█", Style::daylight, "day"};
    case LightBand::goldenHour:
      return {"▓", Style::goldenHour, "golden"};
    case LightBand::blueHour:
      return {"▒", Style::blueHour, "blue"};
    case LightBand::nautical:
      return {"░", Style::nauticalTwilight, "nautical"};
    case LightBand::astronomical:
      return {"·", Style::astronomicalTwilight, "astronomical"};
    case LightBand::nighttime:
      return {" ", Style::night, "night"};
  }
  return {" ", Style::plain, ""};
}

/// The line after its margin, without blanks at its end.
std::string textOf(std::string_view margin, const Line& line, const Terminal& terminal) {
  std::string result(margin);
  for (std::size_t i = 0; i < line.size();) {
    const Style style = line[i].style;
    std::string run;
    for (; i < line.size() && line[i].style == style; ++i) run += line[i].text;
    result += styled(run, style, terminal);
  }
  result.erase(result.find_last_not_of(' ') + 1);
  return result + "\n";
}

int rowOf(double elevation) {
  return static_cast<int>(std::lround(elevation / kDegreesPerRow));
}

Line plotRow(int row, const std::vector<SkySample>& samples) {
  Line line;
  for (const SkySample& sample : samples) {
    const bool hasSun = rowOf(sample.sunElevation) == row;
    const bool hasMoon = rowOf(sample.moonElevation) == row;
    Cell cell = row == 0 ? Cell{"─", Style::faint} : Cell{};
    if (hasMoon) cell = {"○", Style::moon};
    if (hasSun) cell = {hasMoon ? "◉" : "●", Style::sun};
    line.push_back(cell);
  }
  return line;
}

Line lightRow(const std::vector<SkySample>& samples) {
  Line line;
  for (const SkySample& sample : samples) {
    const Light light = lightOf(lightBandForSunElevation(sample.sunElevation));
    line.push_back({light.text, light.style});
  }
  return line;
}

/// Hours of the local clock under their columns; one that the clock skips is missing.
std::string hourRow(std::size_t columns, const DayClock& day) {
  const Calendar calendar(day.zone());
  const double length = day.end().timeIntervalSinceDate(day.start());
  std::string line(columns + 2, ' ');
  for (int hour = 0; hour <= 24; hour += kHoursPerLabel) {
    DateComponents local = day.day();
    local.hour = hour;
    const Date moment = calendar.dateFromComponents(local);
    if (hour < 24 && calendar.componentsFromDate(moment).hour != hour) continue;
    const double fraction = moment.timeIntervalSinceDate(day.start()) / length;
    const auto column =
        static_cast<std::size_t>(std::clamp(fraction, 0.0, 1.0) * static_cast<double>(columns));
    const std::string label = fmt::format("{}", hour);
    line.replace(column, label.size(), label);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::string legend(const Terminal& terminal) {
  std::string result = styled("●", Style::sun, terminal) + " Sun  " +
                       styled("○", Style::moon, terminal) + " Moon   light:";
  for (const LightBand band : {LightBand::astronomical, LightBand::nautical, LightBand::blueHour,
                               LightBand::goldenHour, LightBand::daytime}) {
    const Light light = lightOf(band);
    result += " " + styled(light.text, light.style, terminal) + " " + std::string(light.name);
  }
  return result;
}

}  // namespace

int samplesForWidth(int width) {
  // Whole multiples of the day's hours, so that the labels stand evenly.
  constexpr int kHours = 24;
  const int columns = (width - kAxisWidth - 2) / kHours * kHours;
  return std::clamp(columns, kHours, 4 * kHours);
}

std::string dayPicture(const std::vector<SkySample>& samples, const DayClock& day,
                       const Terminal& terminal) {
  const std::string margin(kAxisWidth, ' ');
  double highest = 0;
  for (const SkySample& sample : samples) {
    highest = std::max({highest, sample.sunElevation, sample.moonElevation});
  }
  std::string result;
  for (int row = rowOf(highest); row >= kLowestRow; --row) {
    const bool isLabelled = row % kLabelledRows == 0;
    result += textOf(isLabelled ? fmt::format("{:>4}° ", row * kDegreesPerRow) : margin,
                     plotRow(row, samples), terminal);
  }
  result += textOf("light ", lightRow(samples), terminal);
  result += margin + hourRow(samples.size(), day) + "\n";
  return result + margin + legend(terminal) + "\n";
}

}  // namespace zenivo::cli
