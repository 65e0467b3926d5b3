// What is seen of an eclipse from a place.

#pragma once

#include <optional>
#include <string>
#include <variant>

#include "answers/common/Scene.h"
#include "eclipses/EclipseCatalogue.h"
#include "eclipses/EclipseType.h"
#include "eclipses/LocalEclipse.h"

namespace zenivo {

/// The first eclipse, one in progress included, of which something is seen.
struct NextEclipse {
  Date after;
};

struct EclipseQuestion {
  Scene scene;
  /// The next one, the one of a day (of the scene's zone, of Greenwich, or of its name), or
  /// that of a name.
  std::variant<NextEclipse, DateComponents, std::string> which;
  std::optional<EclipseKind> kind;  ///< none: either
};

struct EclipseReport {
  Scene scene;
  EclipseRow eclipse;
  LocalEclipse local;
};

/// Throws InputError when there is no such eclipse, and std::runtime_error when the catalogue
/// cannot be read.
EclipseReport answer(const EclipseQuestion& question, const EclipseCatalogue& catalogue);
Json json(const EclipseReport& report);

}  // namespace zenivo
