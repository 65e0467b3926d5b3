#include "commands/sky/DayText.h"

#include <fmt/format.h>

#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "commands/sky/DayPicture.h"

namespace zenivo::cli {
namespace {

Style styleOf(TimeIntervalEventType type) {
  using enum TimeIntervalEventType;
  switch (type) {
    case sunRise:
    case sunTransit:
    case sunSet:
      return Style::sun;
    case moonRise:
    case moonTransit:
    case moonSet:
      return Style::moon;
    case goldenHourStart:
    case goldenHourEnd:
      return Style::goldenHour;
    case blueHourStart:
    case blueHourEnd:
      return Style::blueHour;
    default:
      return Style::plain;
  }
}

std::string eventTable(const DayReport& day, const DayClock& clock, const Terminal& terminal) {
  Table table({{"time"}, {"event"}, {"azimuth", Align::right}, {"elevation", Align::right}});
  for (const DayEvent& event : day.events) {
    table.addRow({clock.time(event.mjd), timeIntervalEventTypeToString(event.type),
                  bearing(event.position.azimuth_), degrees(event.position.elevation_)},
                 styleOf(event.type));
  }
  return table.text(terminal);
}

/// Says of a body without rise and set on which side of the horizon it stays.
std::string stayText(std::string_view body, const CelestialBodyEvent& event) {
  if (event.mjdRise() == kAlwaysAbove) return fmt::format("The {} stays up all day.\n", body);
  if (event.mjdRise() == kAlwaysBelow) return fmt::format("The {} stays down all day.\n", body);
  return {};
}

/// "05:12 - 05:47", with "..." for a limit outside of the day.
std::string spanText(const TwilightEvent& span, const DayClock& clock) {
  const auto limit = [&](double mjd) { return drawEventAtMjd(mjd) ? clock.time(mjd) : "..."; };
  return limit(span.mjdStart()) + " - " + limit(span.mjdEnd());
}

std::string lightTable(const DayReport& day, const DayClock& clock, const Terminal& terminal) {
  Table table({{"light"}, {""}, {""}, {""}, {""}});
  const auto row = [&](const char* name, LightType light, Style style) {
    std::vector<std::string> cells{name};
    for (const TwilightEvent& span : day.sun.spansForLightType(light)) {
      cells.push_back(spanText(span, clock));
    }
    if (cells.size() == 1) cells.emplace_back("none");
    table.addRow(std::move(cells), style);
  };
  row("Golden hour", LightType::goldenHour, Style::goldenHour);
  row("Blue hour", LightType::blueHour, Style::blueHour);
  row("Civil twilight", LightType::civil, Style::plain);
  row("Nautical twilight", LightType::nautical, Style::plain);
  row("Astronomical twilight", LightType::astronomical, Style::plain);
  return table.text(terminal);
}

std::string moonText(const DayReport& day, const DayClock& clock) {
  const MoonEvent& moon = day.moon;
  std::string text = phaseName(moon.phase);
  if (moon.hasPrincipalPhase()) text += fmt::format(" at {}", clock.time(moon.mjdPhase));
  if (moon.isSupermoon) text += ", a supermoon";
  return fmt::format("{}; {} lit, {:.1f} days old", text, percent(moon.phaseIllumination),
                     day.moonAge);
}

std::string milkyWayText(const DayReport& day, const DayClock& clock) {
  const MilkyWayEvent& event = day.milkyWay;
  if (!drawEventAtMjd(event.mjdVisibilityFrom) || !drawEventAtMjd(event.mjdVisibilityTo)) {
    return "galactic centre not visible in the dark";
  }
  return fmt::format("galactic centre visible {} - {}, azimuth {} to {}, {} to {} high",
                     clock.time(event.mjdVisibilityFrom), clock.time(event.mjdVisibilityTo),
                     bearing(event.visibilityFromAzimuth), bearing(event.visibilityToAzimuth),
                     degrees(event.visibilityFromElevation), degrees(event.visibilityToElevation));
}

std::string darknessText(const DayReport& day, const DayClock& clock) {
  if (!day.night) return "the coming night does not get dark";
  std::string text = fmt::format("{} - {}", clock.time(day.night->darkness.start),
                                 clock.time(day.night->darkness.end));
  if (day.night->moonless.empty()) return text + ", the Moon up all the while";
  text += ", without Moon";
  for (const TimeSpan& span : day.night->moonless) {
    text += fmt::format(" {} - {}", clock.time(span.start), clock.time(span.end));
  }
  return text + fmt::format(" ({:.1f} h)", day.night->moonlessHours());
}

}  // namespace

std::string dayText(const DayReport& day, const std::vector<SkySample>& samples,
                    const Terminal& terminal) {
  const Scene& scene = day.question.scene;
  const DayClock clock(day.date, scene.zone);
  std::string text = heading(scene, dayTitle(clock.start(), scene.zone), clock.offset(), terminal);
  text += "\n";
  if (!samples.empty()) text += dayPicture(samples, clock, terminal) + "\n";
  text += eventTable(day, clock, terminal);
  text += stayText("Sun", day.sun) + stayText("Moon", day.moon);
  text += "\n" + lightTable(day, clock, terminal) + "\n";
  text += fmt::format("Moon: {}\nMilky Way: {}\nDarkness: {}\n", moonText(day, clock),
                      milkyWayText(day, clock), darknessText(day, clock));
  return text;
}

}  // namespace zenivo::cli
