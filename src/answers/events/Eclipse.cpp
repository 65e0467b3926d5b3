#include "answers/events/Eclipse.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>

#include "answers/events/EclipseList.h"
#include "eclipses/EclipseSelector.h"
#include "input/InputError.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// Chooses the eclipse that is asked about.
class EclipseChoice {
 public:
  EclipseChoice(const EclipseQuestion& question, const EclipseCatalogue& catalogue)
      : question_(question), catalogue_(catalogue) {}

  EclipseReport operator()(const NextEclipse& next) const;
  EclipseReport operator()(const DateComponents& day) const;
  EclipseReport operator()(const std::string& name) const;

 private:
  EclipseReport reportOn(const EclipseRow& eclipse) const;

  const EclipseQuestion& question_;
  const EclipseCatalogue& catalogue_;
};

EclipseReport EclipseChoice::operator()(const NextEclipse& next) const {
  constexpr double kHalfDay = 0.5;  // no eclipse is longer
  const double mjd = modifiedJulianDay(next.after);
  const PtPosition observer = question_.scene.location.getPtPosition();
  const auto eclipses = eclipsesOfKind(catalogue_, question_.kind);
  const CatalogueYears years = yearsOf(eclipses);
  if (!years.contain(next.after)) throw InputError(years.text());
  for (const EclipseRow& row : eclipses) {
    if (mjdOfGreatestEclipse(row) < mjd - kHalfDay) continue;
    if (eclipseTypeAt(observer, row) == 0) continue;
    EclipseReport report = reportOn(row);
    if (report.local.seen && report.local.seen->until > mjd) return report;
  }
  throw InputError(fmt::format("no later eclipse is seen from there up to {}; {}",
                               eclipses.back().name, years.text()));
}

EclipseReport EclipseChoice::operator()(const DateComponents& day) const {
  const std::string wanted = isoDate(day);
  const auto dateIn = [](const TimeZone& where, double mjd) {
    return isoDate(Calendar(where).componentsFromDate(dateOfMjd(mjd)));
  };
  const TimeZone& zone = question_.scene.zone;
  const double noon = modifiedJulianDay(
      Calendar(TimeZone()).dateFromComponents({day.year, day.month, day.day, 12, 0, 0}));
  const auto eclipses = eclipsesOfKind(catalogue_, question_.kind);
  const CatalogueYears years = yearsOf(eclipses);
  if (day.year < years.first || day.year > years.last) {
    throw InputError(fmt::format("{}; {} is not among them", years.text(), wanted));
  }
  const EclipseRow* nearest = nullptr;
  for (const EclipseRow& row : eclipses) {
    const double mjd = mjdOfGreatestEclipse(row);
    const double dynamical = row.mjd - kJdMinusMjd;  // which names it
    if (dateIn(zone, mjd) == wanted || dateIn(TimeZone(), mjd) == wanted ||
        dateIn(TimeZone(), dynamical) == wanted) {
      return reportOn(row);
    }
    if (nearest == nullptr ||
        std::abs(mjd - noon) < std::abs(mjdOfGreatestEclipse(*nearest) - noon)) {
      nearest = &row;
    }
  }
  throw InputError(fmt::format("there is no such eclipse on {}; the nearest is {}, on {}", wanted,
                               nearest->name, dateIn(zone, mjdOfGreatestEclipse(*nearest))));
}

EclipseReport EclipseChoice::operator()(const std::string& name) const {
  const auto named = catalogue_.getEclipseWithName(name);
  if (!named) {
    throw InputError(fmt::format(
        "no eclipse named {}; {}; write it as in SE2024Apr08T, give its date, or say next",
        inQuotes(name), yearsOf(eclipsesOfKind(catalogue_, std::nullopt)).text()));
  }
  if (question_.kind && kindOf(*named) != *question_.kind) {
    throw InputError(fmt::format("{} is not a {} eclipse", named->name, wordOf(*question_.kind)));
  }
  return reportOn(*named);
}

EclipseReport EclipseChoice::reportOn(const EclipseRow& eclipse) const {
  auto local = localEclipse(question_.scene.location.getPtPosition(), eclipse);
  if (local) return {question_.scene, eclipse, *std::move(local)};
  throw std::runtime_error(fmt::format("the catalogue lacks the elements of {}", eclipse.name));
}

Json contactJson(const EclipseMoment& contact, const TimeZone& zone) {
  const bool happens = drawEventAtMjd(contact.mjd);
  return {{"time", momentJson(contact.mjd, zone)},
          {"elevation", happens ? Json(contact.elevation) : Json(nullptr)},
          {"azimuth", happens ? Json(contact.azimuth) : Json(nullptr)}};
}

Json phaseJson(const EclipseMoment& moment, const EclipseReport& report) {
  const EclipsePhase& phase = moment.phase;
  Json json{{"time", momentJson(moment.mjd, report.scene.zone)},
            {"event", moment.key},
            {"azimuth", moment.azimuth},
            {"elevation", moment.elevation}};
  if (report.eclipse.isSolarEclipse()) {
    json["magnitude"] = phase.magnitude;
    json["covered"] = phase.covered;
  } else {
    json["umbralMagnitude"] = phase.magnitude;
    json["penumbralMagnitude"] = phase.penumbralMagnitude;
  }
  return json;
}

Json seenJson(const EclipseReport& report) {
  if (!report.local.seen) return nullptr;
  const SeenEclipse& seen = *report.local.seen;
  return {{"from", momentJson(seen.from, report.scene.zone)},
          {"until", momentJson(seen.until, report.scene.zone)},
          {"largest", phaseJson(seen.largest, report)},
          {"centralSeconds", seen.centralSeconds}};
}

}  // namespace

EclipseReport answer(const EclipseQuestion& question, const EclipseCatalogue& catalogue) {
  return std::visit(EclipseChoice(question, catalogue), question.which);
}

Json json(const EclipseReport& report) {
  const LocalEclipse& seen = report.local;
  Json local{{"type", seen.type}};
  if (report.eclipse.isSolarEclipse()) {
    local["magnitude"] = seen.magnitude;
    local["obscuration"] = seen.obscuration;
  } else {
    local["umbralMagnitude"] = seen.umbralMagnitude;
    local["penumbralMagnitude"] = seen.penumbralMagnitude;
  }
  for (const EclipseMoment& contact : seen.contacts) {
    local[std::string(contact.key)] = contactJson(contact, report.scene.zone);
  }
  local["centralSeconds"] = seen.centralSeconds;
  local["horizon"] = Json::array();
  for (const EclipseMoment& moment : seen.horizon) {
    local["horizon"].push_back(phaseJson(moment, report));
  }
  local["seen"] = seenJson(report);
  if (report.eclipse.isSolarEclipse()) {
    local["uncertaintySeconds"] = contactUncertainty(mjdOfGreatestEclipse(report.eclipse));
  }
  return {{"name", report.eclipse.name},
          {"kind", wordOf(kindOf(report.eclipse))},
          {"type", eclipseTypeAsInt(report.eclipse)},
          {"zone", report.scene.zone.name()},
          {"place", placeJson(report.scene.location)},
          {"local", std::move(local)}};
}

}  // namespace zenivo
