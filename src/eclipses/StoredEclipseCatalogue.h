// The eclipses of the static store.

#pragma once

#include <memory>

#include "eclipses/EclipseCatalogue.h"
#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

/// Reads the catalogue through a context of the static store, on whose queue it must
/// be used.  What cannot be read is logged.
class StoredEclipseCatalogue : public EclipseCatalogue {
 public:
  explicit StoredEclipseCatalogue(std::shared_ptr<ManagedObjectContext> context);

  std::vector<EclipseRow> eclipses() const override;
  std::optional<EclipseRow> getEclipseWithName(std::string_view name) const override;

 private:
  std::vector<EclipseRow> rowsFor(FetchRequest request) const;

  std::shared_ptr<ManagedObjectContext> context_;
};

}  // namespace zenivo
