// The catalogue of eclipses for the commands that read it.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "eclipses/EclipseCatalogue.h"
#include "eclipses/EclipseType.h"

namespace zenivo::cli {

/// The catalogue that comes with the program.
std::unique_ptr<EclipseCatalogue> openEclipseCatalogue();

/// Every eclipse, of one kind if told, by their dates.  Throws std::runtime_error when the
/// catalogue cannot be read.
std::vector<EclipseRow> eclipsesOfKind(const EclipseCatalogue& catalogue,
                                       std::optional<EclipseKind> kind);

/// Greatest eclipse as seen from the Earth's centre, mjd in Universal Time.
double mjdOfGreatestEclipse(const EclipseRow& eclipse);

/// "solar", "lunar": as options and JSON have it.
std::string_view wordOf(EclipseKind kind);
/// The same read from an option; nullopt for an empty text.
std::optional<EclipseKind> kindOfWord(std::string_view word);

}  // namespace zenivo::cli
