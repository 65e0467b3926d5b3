// The eclipses of a period, and how they are seen from a place.

#pragma once

#include <optional>
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

struct EclipsesReport {
  EclipsesQuestion question;
  std::vector<ListedEclipse> eclipses;
};

/// Throws InputError for a period that ends before it begins, and std::runtime_error when the
/// catalogue cannot be read.
EclipsesReport answer(const EclipsesQuestion& question, const EclipseCatalogue& catalogue);
Json json(const EclipsesReport& report);

/// Every eclipse of the catalogue, of one kind if told, by their dates.  Throws
/// std::runtime_error when it cannot be read.
std::vector<EclipseRow> eclipsesOfKind(const EclipseCatalogue& catalogue,
                                       std::optional<EclipseKind> kind);

/// "solar", "lunar": as options and JSON have it.
std::string_view wordOf(EclipseKind kind);

}  // namespace zenivo
