// The eclipses of a period, and how they are seen from a place.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "answers/common/Scene.h"
#include "eclipses/EclipseCatalogue.h"
#include "eclipses/EclipseType.h"

namespace zenivo {

struct EclipsesQuestion {
  std::optional<Scene> scene;  ///< without it nothing is said of how they are seen
  TimeZone zone;
  std::optional<Date> from;  ///< greatest eclipse then or later
  std::optional<Date> to;    ///< greatest eclipse before
  std::optional<EclipseKind> kind;
};

struct ListedEclipse {
  EclipseRow row;
  double mjd = 0;              ///< of greatest eclipse
  std::int32_t localType = 0;  ///< display code; 0 too without a place
};

/// The years whose eclipses the catalogue holds, both included.
struct CatalogueYears {
  std::int64_t first;
  std::int64_t last;

  bool contain(Date date) const;  ///< by Greenwich
  /// "the catalogue holds the eclipses of 1801 to 2200"
  std::string text() const;
};

struct EclipsesReport {
  EclipsesQuestion question;
  CatalogueYears years;
  std::vector<ListedEclipse> eclipses;

  /// The period asked about is longer than what the catalogue holds.
  bool isCut() const;
};

/// Throws InputError for a period that ends before it begins or lies outside the catalogue, and
/// std::runtime_error when the catalogue cannot be read.
EclipsesReport answer(const EclipsesQuestion& question, const EclipseCatalogue& catalogue);
Json json(const EclipsesReport& report);

/// Every eclipse of the catalogue, of one kind if told, by their dates.  Throws
/// std::runtime_error when it cannot be read.
std::vector<EclipseRow> eclipsesOfKind(const EclipseCatalogue& catalogue,
                                       std::optional<EclipseKind> kind);

/// REQUIRES: not empty.
CatalogueYears yearsOf(const std::vector<EclipseRow>& eclipses);

/// "solar", "lunar": as options and JSON have it.
std::string_view wordOf(EclipseKind kind);

}  // namespace zenivo
