// Objects of the user store that repeat others.

#pragma once

#include <optional>

#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

/// The plans, own points of interest and own cameras that repeat an earlier one, to
/// be deleted.  The identifiers play no part, the content does:
///   plans: place to 1e-7 degrees, date, name, and number of images;
///   points of interest: place to 1e-7 degrees, name, and number of images;
///   cameras: model, sensor size and megapixels.
/// An object that repeats several earlier ones is listed as often.  Nullopt when the
/// objects cannot be fetched.
std::optional<ManagedObjects> duplicateObjects(ManagedObjectContext& context,
                                               Error* error = nullptr);

}  // namespace zenivo
