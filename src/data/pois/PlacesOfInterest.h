// Points of interest, of the catalogue and the user's own, in one list.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/stores/Database.h"
#include "foundation/Error.h"
#include "place/Coordinate.h"

namespace zenivo {

struct PlaceOfInterest {
  std::optional<std::int32_t> pid;  ///< its number in the catalogue; none for the user's own
  std::string name;
  std::string country;
  std::string category;  ///< key of the table PoiCategories; empty for none
  Coordinate coordinate;
  std::optional<double> kilometres;  ///< from the place that they are sorted from
};

/// Those whose name or country contains the text, whatever case and accents, and of the
/// catalogue those whose category does, too; all for an empty text.  The user's own come
/// first, and each kind by name.  Nullopt with the reason in `error` when a store cannot be
/// read; a user's store is not made by reading.
std::optional<std::vector<PlaceOfInterest>> placesOfInterest(Database& database,
                                                             std::string_view text,
                                                             Error* error = nullptr);

/// Tells each its distance from there, to 0.7 %, and puts the nearest first; of equally near
/// ones the order stays.
void sortByDistance(std::vector<PlaceOfInterest>& places, const Coordinate& from);

}  // namespace zenivo
