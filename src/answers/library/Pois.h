// Which points of interest there are, near a place or anywhere.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "answers/common/Moments.h"
#include "answers/common/Stores.h"
#include "data/pois/PlacesOfInterest.h"
#include "place/Coordinate.h"

namespace zenivo {

struct PoisQuestion {
  std::string text = {};                ///< part of the name, country or category; empty for all
  std::optional<Coordinate> near = {};  ///< the nearest first
  /// At most so many; near a place 20 where nothing is said.
  std::optional<std::size_t> limit = {};
};

struct PoisReport {
  std::vector<PlaceOfInterest> pois;
};

/// Throws std::runtime_error when a store cannot be read.
PoisReport answer(const PoisQuestion& question, Stores& stores);
Json json(const PoisReport& report);

}  // namespace zenivo
