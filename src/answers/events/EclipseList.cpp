#include "answers/events/EclipseList.h"

#include <stdexcept>

#include "eclipses/EclipseSelector.h"
#include "eclipses/LocalEclipse.h"
#include "input/InputError.h"

namespace zenivo {

EclipsesReport answer(const EclipsesQuestion& question, const EclipseCatalogue& catalogue) {
  const auto& [scene, zone, from, to, kind] = question;
  if (from && to && *from >= *to) throw InputError("the period ends before it begins");
  EclipsesReport report{.question = question, .eclipses = {}};
  for (EclipseRow& row : eclipsesOfKind(catalogue, kind)) {
    const double mjd = mjdOfGreatestEclipse(row);
    const Date date = dateOfMjd(mjd);
    if ((from && date < *from) || (to && date >= *to)) continue;
    const std::int32_t type = scene ? eclipseTypeAt(scene->location.getPtPosition(), row) : 0;
    report.eclipses.push_back({std::move(row), mjd, type});
  }
  return report;
}

Json json(const EclipsesReport& report) {
  const auto& [scene, zone, from, to, kind] = report.question;
  Json eclipses = Json::array();
  for (const ListedEclipse& eclipse : report.eclipses) {
    eclipses.push_back({{"name", eclipse.row.name},
                        {"kind", wordOf(kindOf(eclipse.row))},
                        {"type", eclipseTypeAsInt(eclipse.row)},
                        {"time", momentJson(eclipse.mjd, zone)},
                        {"localType", scene ? Json(eclipse.localType) : Json(nullptr)}});
  }
  return {{"zone", zone.name()},
          {"place", scene ? placeJson(scene->location) : Json(nullptr)},
          {"eclipses", std::move(eclipses)}};
}

std::vector<EclipseRow> eclipsesOfKind(const EclipseCatalogue& catalogue,
                                       std::optional<EclipseKind> kind) {
  std::vector<EclipseRow> eclipses = catalogue.eclipses();
  if (eclipses.empty()) throw std::runtime_error("the catalogue of eclipses cannot be read");
  if (kind) std::erase_if(eclipses, [&](const EclipseRow& row) { return kindOf(row) != *kind; });
  return eclipses;
}

std::string_view wordOf(EclipseKind kind) {
  return kind == EclipseKind::solar ? "solar" : "lunar";
}

}  // namespace zenivo
