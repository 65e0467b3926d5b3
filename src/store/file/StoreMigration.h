// Bringing a store of an older model up to date.

#pragma once

#include "store/file/ModelDifference.h"
#include "store/model/ManagedObjectModel.h"
#include "store/sqlite/Connection.h"

namespace zenivo {

/// Rebuilds the tables that differ, writes the model's catalogue in today's format and
/// counts as a save; within a transaction in which foreign keys are not enforced.
/// Entities, attributes and relationships may have been added, removed and made optional,
/// and indices and delete rules changed.  Rows keep their keys and everything that both
/// models have; added attributes take their default.
void migrateStore(sqlite::Connection& connection, const ModelDifference& difference,
                  const ManagedObjectModel& model);

}  // namespace zenivo
