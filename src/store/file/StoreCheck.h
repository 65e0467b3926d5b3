// Looking a store file over for damage.

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/model/ManagedObjectModel.h"
#include "store/model/StoreError.h"

namespace zenivo {

/// What is wrong with the store's file, a line for each fault, at most a hundred of a kind:
/// broken pages, indexes that do not fit their tables, rows that refer to missing ones,
/// tables and columns of the model that are missing, keys that would be given twice, rows
/// of no entity and values of the wrong type.  Empty for a sound store.  Nullopt with the
/// reason in `error` when the file is no store, of a newer model, or cannot be read.  The
/// file is not changed.
std::optional<std::vector<std::string>> faultsOfStore(const std::filesystem::path& file,
                                                      const ManagedObjectModel& model,
                                                      Error* error = nullptr);

}  // namespace zenivo
