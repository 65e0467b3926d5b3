// Where a text that the user typed is.

#pragma once

#include <string>
#include <string_view>

#include "answers/common/Scene.h"
#include "data/stores/Database.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// A place that was typed: coordinates, one of the user's own points of interest, or a
/// place of the gazetteer, looked for in this order.
struct TypedPlace {
  ZVLocation location;
  std::string name;     ///< empty for coordinates
  std::string origin;   ///< whose name that is; of coordinates, which place is near
  std::string country;  ///< ISO 3166, two letters; empty where it is not known
};

/// Throws InputError for what is neither.
TypedPlace placeFrom(std::string_view text, Database& database);

/// The place with the clocks there: those of the zone that is named, or, where none is,
/// by the borders of the zones.  Throws InputError.
Scene sceneFrom(std::string_view place, std::string_view zone, Database& database);

}  // namespace zenivo
