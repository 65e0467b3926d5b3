// The files that hold what the user makes, and the catalogue: what is in them, and whether
// it is sound.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "answers/common/Moments.h"
#include "answers/common/Stores.h"

namespace zenivo {

struct StoresQuestion {};

struct StoreReport {
  std::string name;  ///< "user" or "static"
  std::filesystem::path file;
  std::optional<std::uintmax_t> bytes;  ///< none while there is no file
  std::string identifier;
  bool wasMigrated = false;                                 ///< it was of an older version
  std::vector<std::pair<std::string, std::size_t>> counts;  ///< of objects, by entity
};

struct StoresReport {
  std::vector<StoreReport> stores;  ///< the user's, then the catalogue
};

struct StoreCheckQuestion {};

/// All sound; what is not is thrown.
struct StoreCheckReport {
  std::vector<std::filesystem::path> files;
};

/// Plans, places and cameras that repeat others.
struct DuplicatesQuestion {
  bool deletes = false;
};

struct DuplicatesReport {
  struct Duplicate {
    std::string entity;
    std::string name;  ///< by which the user knows it
  };
  std::vector<Duplicate> duplicates;
  bool areDeleted = false;
};

// All throw std::runtime_error for a store that cannot be read, or is damaged; a user's store
// is not made by reading.

StoresReport answer(const StoresQuestion& question, Stores& stores);
StoreCheckReport answer(const StoreCheckQuestion& question, Stores& stores);
DuplicatesReport answer(const DuplicatesQuestion& question, Stores& stores);

Json json(const StoresReport& report);
Json json(const StoreCheckReport& report);
Json json(const DuplicatesReport& report);

}  // namespace zenivo
