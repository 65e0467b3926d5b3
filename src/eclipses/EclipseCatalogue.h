// Where the eclipses come from.

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "eclipses/EclipseRow.h"

namespace zenivo {

/// The catalogue of the static store.
class EclipseCatalogue {
 public:
  virtual ~EclipseCatalogue() = default;

  /// Every eclipse, by its `mjd` ascending; empty when the catalogue cannot be read.
  virtual std::vector<EclipseRow> eclipses() const = 0;

  /// nullopt when no eclipse has the name.
  virtual std::optional<EclipseRow> getEclipseWithName(std::string_view name) const = 0;
};

}  // namespace zenivo
