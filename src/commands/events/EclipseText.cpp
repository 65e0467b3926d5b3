#include "commands/events/EclipseText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "answers/common/Words.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "foundation/DateFormatter.h"
#include "time/Mjd.h"

namespace zenivo::cli {
namespace {

Date dateOfGreatest(const EclipseReport& report) {
  return dateOfMjd(report.local.mjdOf(report.eclipse.isSolarEclipse() ? "max" : "mid"));
}

bool isGreatestSeen(const EclipseReport& report) {
  const auto& contacts = report.local.contacts;
  const auto greatest = std::ranges::find(contacts, "max", &EclipseMoment::key);
  return greatest != contacts.end() && greatest->elevation >= 0;
}

std::string isSeenText(const EclipseReport& report) {
  const EclipseKind kind = kindOf(report.eclipse);
  const bool isSolar = kind == EclipseKind::solar;
  if (!report.local.reachesPlace && isSolar) {
    return "Not seen from here: the Moon's shadow does not reach this place.\n";
  }
  if (report.local.type == 0) {
    return fmt::format("Not seen from here: the {} is below the horizon all the time.\n",
                       isSolar ? "Sun" : "Moon");
  }
  const std::string type = eclipseLongTypeToString(kind, report.local.type);
  if (isSolar) {
    const std::string size = fmt::format("magnitude {:.3f}, {} of the Sun's disk covered",
                                         report.local.magnitude, percent(report.local.obscuration));
    return isGreatestSeen(report)
               ? fmt::format("Seen from here: {}, {}\n", type, size)
               : fmt::format("Seen from here: {}; its greatest, {}, is below the horizon\n", type,
                             size);
  }
  return fmt::format("Seen from here: {}, umbral magnitude {:.3f}, penumbral {:.3f}\n", type,
                     report.local.umbralMagnitude, report.local.penumbralMagnitude);
}

/// "Totality 3 min 49 s", if there is one to be seen.
std::string durationText(const EclipseReport& report) {
  const bool isSolar = report.eclipse.isSolarEclipse();
  if (report.local.type < (isSolar ? 2 : 3)) return {};
  const double begin = report.local.mjdOf(isSolar ? "C2" : "U2");
  const double end = report.local.mjdOf(isSolar ? "C3" : "U3");
  if (!drawEventAtMjd(begin) || !drawEventAtMjd(end)) return {};
  const bool isAnnular = isSolar && report.local.magnitude < 1;
  const long seconds = std::lround((end - begin) * kSecondsPerDay);
  return fmt::format("\n{} {} min {} s\n", isAnnular ? "Annularity" : "Totality", seconds / 60,
                     seconds % 60);
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
    const bool isContact = moment.key != "rise" && moment.key != "set";
    const bool isHidden = isContact && moment.elevation < 0;
    const std::string time = iso8601String(dateOfMjd(moment.mjd), report.scene.zone);
    table.addRow(
        {time.substr(0, 10) + " " + time.substr(11, 8), std::string(isContact ? moment.key : ""),
         textOf(moment, report), bearing(moment.azimuth, 1), degrees(moment.elevation, 1),
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
         isSeenText(report) + "\n" + momentsTable(report, terminal) + durationText(report);
}

}  // namespace zenivo::cli
