// An eclipse as JSON and as text.

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "answers/common/Words.h"
#include "commands/common/Table.h"
#include "commands/events/EclipseReport.h"
#include "commands/events/Eclipses.h"
#include "foundation/DateFormatter.h"
#include "time/Mjd.h"

namespace zenivo::cli {
namespace {

Json contactJson(const EclipseMoment& contact, const TimeZone& zone) {
  const bool happens = drawEventAtMjd(contact.mjd);
  return {{"time", momentJson(contact.mjd, zone)},
          {"elevation", happens ? Json(contact.elevation) : Json(nullptr)},
          {"azimuth", happens ? Json(contact.azimuth) : Json(nullptr)}};
}

double mjdOf(const EclipseReport& report, std::string_view key) {
  const auto found = std::ranges::find(report.contacts, key, &EclipseMoment::key);
  return found == report.contacts.end() ? kAlwaysBelow : found->mjd;
}

Date dateOfGreatest(const EclipseReport& report) {
  return dateOfMjd(mjdOf(report, report.eclipse.isSolarEclipse() ? "max" : "mid"));
}

bool isGreatestSeen(const EclipseReport& report) {
  const auto greatest = std::ranges::find(report.contacts, "max", &EclipseMoment::key);
  return greatest != report.contacts.end() && greatest->elevation >= 0;
}

std::string isSeenText(const EclipseReport& report) {
  const EclipseKind kind = kindOf(report.eclipse);
  const bool isSolar = kind == EclipseKind::solar;
  if (!report.reachesPlace && isSolar) {
    return "Not seen from here: the Moon's shadow does not reach this place.\n";
  }
  if (report.localType == 0) {
    return fmt::format("Not seen from here: the {} is below the horizon all the time.\n",
                       isSolar ? "Sun" : "Moon");
  }
  const std::string type = eclipseLongTypeToString(kind, report.localType);
  if (isSolar) {
    const std::string size = fmt::format("magnitude {:.3f}, {} of the Sun's disk covered",
                                         report.magnitude, percent(report.obscuration));
    return isGreatestSeen(report)
               ? fmt::format("Seen from here: {}, {}\n", type, size)
               : fmt::format("Seen from here: {}; its greatest, {}, is below the horizon\n", type,
                             size);
  }
  return fmt::format("Seen from here: {}, umbral magnitude {:.3f}, penumbral {:.3f}\n", type,
                     report.umbralMagnitude, report.penumbralMagnitude);
}

/// "Totality 3 min 49 s", if there is one to be seen.
std::string durationText(const EclipseReport& report) {
  const bool isSolar = report.eclipse.isSolarEclipse();
  if (report.localType < (isSolar ? 2 : 3)) return {};
  const double begin = mjdOf(report, isSolar ? "C2" : "U2");
  const double end = mjdOf(report, isSolar ? "C3" : "U3");
  if (!drawEventAtMjd(begin) || !drawEventAtMjd(end)) return {};
  const bool isAnnular = isSolar && report.magnitude < 1;
  const long seconds = std::lround((end - begin) * kSecondsPerDay);
  return fmt::format("\n{} {} min {} s\n", isAnnular ? "Annularity" : "Totality", seconds / 60,
                     seconds % 60);
}

std::string momentsTable(const EclipseReport& report, const Scene& scene,
                         const Terminal& terminal) {
  std::vector<EclipseMoment> moments = report.contacts;
  moments.insert(moments.end(), report.horizon.begin(), report.horizon.end());
  std::erase_if(moments, [](const EclipseMoment& m) { return !drawEventAtMjd(m.mjd); });
  std::ranges::stable_sort(moments, {}, &EclipseMoment::mjd);
  Table table({{"time"}, {""}, {""}, {"azimuth", Align::right}, {"elevation", Align::right}, {""}});
  for (const EclipseMoment& moment : moments) {
    const bool isContact = !moment.key.empty();
    const bool isHidden = isContact && moment.elevation < 0;
    const std::string time = iso8601String(dateOfMjd(moment.mjd), scene.zone);
    table.addRow({time.substr(0, 10) + " " + time.substr(11, 8), std::string(moment.key),
                  std::string(moment.text), bearing(moment.azimuth, 1),
                  degrees(moment.elevation, 1), isHidden ? "below the horizon" : ""},
                 isHidden ? Style::faint : Style::plain);
  }
  return table.text(terminal);
}

}  // namespace

Json eclipseJson(const EclipseReport& report, const Scene& scene) {
  const bool isSolar = report.eclipse.isSolarEclipse();
  Json local{{"type", report.localType}};
  if (isSolar) {
    local["magnitude"] = report.magnitude;
    local["obscuration"] = report.obscuration;
  } else {
    local["umbralMagnitude"] = report.umbralMagnitude;
    local["penumbralMagnitude"] = report.penumbralMagnitude;
  }
  for (const EclipseMoment& contact : report.contacts) {
    local[std::string(contact.key)] = contactJson(contact, scene.zone);
  }
  return {{"name", report.eclipse.name},
          {"kind", wordOf(kindOf(report.eclipse))},
          {"type", eclipseTypeAsInt(report.eclipse)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)},
          {"local", std::move(local)}};
}

std::string eclipseText(const EclipseReport& report, const Scene& scene, const Terminal& terminal) {
  const Date greatest = dateOfGreatest(report);
  return heading(scene, dayTitle(greatest, scene.zone), offsetTitle(greatest, scene.zone),
                 terminal) +
         fmt::format("\n{} ({})\n", eclipseLongTypeString(report.eclipse), report.eclipse.name) +
         isSeenText(report) + "\n" + momentsTable(report, scene, terminal) + durationText(report);
}

}  // namespace zenivo::cli
