#include "commands/events/Eclipses.h"

#include <algorithm>
#include <stdexcept>

#include "data/stores/Database.h"
#include "eclipses/StoredEclipseCatalogue.h"
#include "time/Mjd.h"

namespace zenivo::cli {

std::unique_ptr<EclipseCatalogue> openEclipseCatalogue() {
  return std::make_unique<StoredEclipseCatalogue>(
      Database::sharedInstance().staticManagedObjectContext());
}

std::vector<EclipseRow> eclipsesOfKind(const EclipseCatalogue& catalogue,
                                       std::optional<EclipseKind> kind) {
  std::vector<EclipseRow> eclipses = catalogue.eclipses();
  if (eclipses.empty()) throw std::runtime_error("the catalogue of eclipses cannot be read");
  if (kind) std::erase_if(eclipses, [&](const EclipseRow& row) { return kindOf(row) != *kind; });
  return eclipses;
}

double mjdOfGreatestEclipse(const EclipseRow& eclipse) {
  const double deltaT = eclipse.solarEclipse   ? eclipse.solarEclipse->deltaT
                        : eclipse.lunarEclipse ? eclipse.lunarEclipse->i2
                                               : 0;
  return eclipse.mjd - kJdMinusMjd - deltaT / kSecondsPerDay;
}

std::string_view wordOf(EclipseKind kind) {
  return kind == EclipseKind::solar ? "solar" : "lunar";
}

std::optional<EclipseKind> kindOfWord(std::string_view word) {
  if (word.empty()) return std::nullopt;
  return word == "solar" ? EclipseKind::solar : EclipseKind::lunar;
}

}  // namespace zenivo::cli
