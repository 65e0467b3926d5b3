// The stops that a table shows.

#pragma once

#include <CLI/CLI.hpp>

#include <cstddef>
#include <string>
#include <vector>

#include "calculators/camera/Aperture.h"

namespace zenivo::cli {

/// --aperture with a list of stops, and --all.
class StopColumns {
 public:
  void addTo(CLI::App& command);

  /// Places in `stops` of those that were asked for, ascending: the nearest to each given,
  /// all, or the full stops from f/2.8 to f/16.  Throws InputError.
  /// REQUIRES: a ladder that is not empty.
  std::vector<std::size_t> chosenFrom(const std::vector<Aperture>& stops) const;

 private:
  std::vector<std::string> texts_;
  bool wantsAll_ = false;
};

}  // namespace zenivo::cli
