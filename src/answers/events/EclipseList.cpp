#include "answers/events/EclipseList.h"

#include <fmt/format.h>

#include <stdexcept>

#include "eclipses/EclipseSelector.h"
#include "eclipses/LocalEclipse.h"
#include "input/InputError.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::int64_t yearOf(Date date) {
  return yearValue(date, Calendar(TimeZone()));
}

}  // namespace

bool CatalogueYears::contain(Date date) const {
  return yearOf(date) >= first && yearOf(date) <= last;
}

std::string CatalogueYears::text() const {
  return fmt::format("the catalogue holds the eclipses of {} to {}", first, last);
}

CatalogueYears yearsOf(const std::vector<EclipseRow>& eclipses) {
  return {yearOf(dateOfMjd(mjdOfGreatestEclipse(eclipses.front()))),
          yearOf(dateOfMjd(mjdOfGreatestEclipse(eclipses.back())))};
}

bool EclipsesReport::isCut() const {
  return (question.from && !years.contain(*question.from)) ||
         (question.to && !years.contain(question.to->dateByAddingTimeInterval(-1)));
}

EclipsesReport answer(const EclipsesQuestion& question, const EclipseCatalogue& catalogue) {
  const auto& [scene, zone, from, to, kind] = question;
  if (from && to && *from >= *to) throw InputError("the period ends before it begins");
  auto rows = eclipsesOfKind(catalogue, kind);
  EclipsesReport report{.question = question, .years = yearsOf(rows), .eclipses = {}};
  const bool isBefore = to && yearOf(to->dateByAddingTimeInterval(-1)) < report.years.first;
  if (isBefore || (from && yearOf(*from) > report.years.last)) {
    throw InputError(fmt::format("{}; of that period it knows nothing", report.years.text()));
  }
  for (EclipseRow& row : rows) {
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
          {"catalogue", {{"firstYear", report.years.first}, {"lastYear", report.years.last}}},
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
