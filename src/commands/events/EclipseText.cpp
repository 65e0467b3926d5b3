#include "commands/events/EclipseText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"
#include "time/Mjd.h"

namespace zenivo::cli {
namespace {

Date dateOfGreatest(const EclipseReport& report) {
  return dateOfMjd(report.local.mjdOf(report.eclipse.isSolarEclipse() ? "max" : "mid"));
}

/// A number below 1, with as many digits as keep it from being rounded to 1.
std::string belowOne(double value, int digits, double unit) {
  constexpr int kMostDigits = 9;
  const std::string whole = fmt::format("{:.0f}", unit);
  std::string text;
  do {
    text = fmt::format("{:.{}f}", value * unit, digits);
  } while (value < 1 && text.starts_with(whole) && digits++ < kMostDigits);
  return text;
}

std::string sizeText(const EclipsePhase& phase, bool isSolar) {
  constexpr double kNoticeable = 0.6;  // of a penumbral eclipse, by the almanacs
  if (isSolar) {
    return fmt::format("magnitude {}, {} % of the Sun's disk covered",
                       belowOne(phase.magnitude, 3, 1), belowOne(phase.covered, 0, 100));
  }
  if (phase.magnitude > 0) {
    return fmt::format("umbral magnitude {}, penumbral {:.3f}", belowOne(phase.magnitude, 3, 1),
                       phase.penumbralMagnitude);
  }
  return fmt::format("penumbral magnitude {:.3f}{}", phase.penumbralMagnitude,
                     phase.penumbralMagnitude < kNoticeable ? ", not noticeable" : "");
}

bool isContact(const EclipseMoment& moment) {
  return moment.key != "rise" && moment.key != "set";
}

/// "sunset 20:31:05"
std::string horizonText(const EclipseMoment& moment, const EclipseReport& report) {
  return fmt::format("{}{} {}", report.eclipse.isSolarEclipse() ? "sun" : "moon", moment.key,
                     iso8601String(dateOfMjd(moment.mjd), report.scene.zone).substr(11, 8));
}

/// The type of the place; where no contact is seen, that of what is seen between them.
std::int32_t seenType(const EclipseReport& report) {
  if (report.local.type > 0 || report.eclipse.isSolarEclipse()) {
    return std::max(report.local.type, 1);
  }
  const double magnitude = report.local.seen->largest.phase.magnitude;
  return magnitude >= 1 ? 3 : magnitude > 0 ? 2 : 1;
}

std::string seenText(const EclipseReport& report) {
  const EclipseKind kind = kindOf(report.eclipse);
  const bool isSolar = kind == EclipseKind::solar;
  if (!report.local.reachesPlace && isSolar) {
    return "Not seen from here: the Moon's shadow does not reach this place.\n";
  }
  if (!report.local.seen) {
    return fmt::format("Not seen from here: the {} is below the horizon all the time.\n",
                       isSolar ? "Sun" : "Moon");
  }
  const EclipseMoment& largest = report.local.seen->largest;
  const std::string type = eclipseLongTypeToString(kind, seenType(report));
  const std::string size = sizeText(largest.phase, isSolar);
  std::string text =
      isContact(largest)
          ? fmt::format("Seen from here: {}, {}\n", type, size)
          : fmt::format(
                "Seen from here: {}; at most, at {}, {}; its greatest is below the horizon\n", type,
                horizonText(largest, report), size);
  for (const EclipseMoment& moment : report.local.horizon) {
    if (moment.mjd == largest.mjd) continue;
    text +=
        fmt::format("At {}: {}\n", horizonText(moment, report), sizeText(moment.phase, isSolar));
  }
  return text;
}

std::string minutesText(double duration) {
  const long seconds = std::lround(duration);
  return fmt::format("{} min {} s", seconds / 60, seconds % 60);
}

/// "Totality 3 min 49 s", if any of it is seen.
std::string durationText(const EclipseReport& report) {
  const LocalEclipse& local = report.local;
  if (!local.seen || local.seen->centralSeconds == 0) return {};
  const bool isAnnular = report.eclipse.isSolarEclipse() && local.magnitude < 1;
  const std::string whole = minutesText(local.centralSeconds);
  const std::string seen = minutesText(local.seen->centralSeconds);
  return fmt::format("\n{} {}{}\n", isAnnular ? "Annularity" : "Totality", whole,
                     seen == whole ? "" : fmt::format(", {} of it above the horizon", seen));
}

/// What is to be said under every table of a solar eclipse.
std::string cautionText(const EclipseReport& report) {
  if (!report.eclipse.isSolarEclipse()) return {};
  const LocalEclipse& local = report.local;
  const bool isTotal = local.magnitude >= 1 && local.seen && local.seen->centralSeconds > 0;
  return fmt::format(
      "\nLook at the Sun only through a filter made for that, at all times{}.\n"
      "The contacts here come within about {:.0f} s of these times.\n",
      isTotal ? " but between C2 and C3 here" : "",
      contactUncertainty(mjdOfGreatestEclipse(report.eclipse)));
}

struct MomentText {
  std::string_view key;
  const char* solar;
  const char* lunar;
};

constexpr MomentText kMomentTexts[] = {
    {"C1", "Partial eclipse begins", ""}, {"max", "Greatest eclipse", ""},
    {"C4", "Partial eclipse ends", ""},   {"P1", "", "Penumbral eclipse begins"},
    {"U1", "", "Partial eclipse begins"}, {"U2", "", "Totality begins"},
    {"mid", "", "Greatest eclipse"},      {"U3", "", "Totality ends"},
    {"U4", "", "Partial eclipse ends"},   {"P4", "", "Penumbral eclipse ends"},
    {"rise", "Sunrise", "Moonrise"},      {"set", "Sunset", "Moonset"}};

std::string textOf(const EclipseMoment& moment, const EclipseReport& report) {
  const bool isTotal = report.local.magnitude >= 1;
  if (moment.key == "C2") return isTotal ? "Totality begins" : "Annularity begins";
  if (moment.key == "C3") return isTotal ? "Totality ends" : "Annularity ends";
  const auto* text = std::ranges::find(kMomentTexts, moment.key, &MomentText::key);
  return report.eclipse.isSolarEclipse() ? text->solar : text->lunar;
}

std::string momentsTable(const EclipseReport& report, const Terminal& terminal) {
  std::vector<EclipseMoment> moments = report.local.contacts;
  moments.insert(moments.end(), report.local.horizon.begin(), report.local.horizon.end());
  std::erase_if(moments, [](const EclipseMoment& m) { return !drawEventAtMjd(m.mjd); });
  std::ranges::stable_sort(moments, {}, &EclipseMoment::mjd);
  Table table({{"time"}, {""}, {""}, {"azimuth", Align::right}, {"elevation", Align::right}, {""}});
  for (const EclipseMoment& moment : moments) {
    const bool isHidden = isContact(moment) && moment.elevation < 0;
    const std::string time = iso8601String(dateOfMjd(moment.mjd), report.scene.zone);
    table.addRow({time.substr(0, 10) + " " + time.substr(11, 8),
                  std::string(isContact(moment) ? moment.key : ""), textOf(moment, report),
                  bearing(moment.azimuth, 1), degrees(moment.elevation, 1),
                  isHidden ? "below the horizon" : ""},
                 isHidden ? Style::faint : Style::plain);
  }
  return table.text(terminal);
}

}  // namespace

std::string eclipseText(const EclipseReport& report, const Terminal& terminal) {
  const Scene& scene = report.scene;
  const Date greatest = dateOfGreatest(report);
  return heading(scene, dayTitle(greatest, scene.zone), offsetTitle(greatest, scene.zone),
                 terminal) +
         fmt::format("\n{} ({})\n", eclipseLongTypeString(report.eclipse), report.eclipse.name) +
         seenText(report) + "\n" + momentsTable(report, terminal) + durationText(report) +
         cautionText(report);
}

}  // namespace zenivo::cli
