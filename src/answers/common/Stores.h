// The user's store and the catalogue, as commands use them.

#pragma once

#include <memory>
#include <optional>
#include <stdexcept>

#include "data/stores/Database.h"
#include "store/model/StoreError.h"

namespace zenivo {

/// The two stores of a database, opened when they are first asked for, by whatever way.
/// What cannot be opened or fetched is thrown as a std::runtime_error with the text for the
/// user.  One at a time.
class Stores {
 public:
  explicit Stores(Database& database);

  Database& database() { return database_; }

  ManagedObjectContext& catalogue() { return *database_.staticManagedObjectContext(); }
  /// The user's store, made where there is none.
  ManagedObjectContext& own() { return *database_.managedObjectContext(); }
  /// Whether the user has one already.  Nothing that only reads should make it.
  bool hasOwn() const { return database_.hasUserStore(); }

 private:
  struct Listener;

  Database& database_;
  std::shared_ptr<Listener> listener_;
};

/// The result of a fetch.  Throws std::runtime_error with the error's description when
/// there is none.
template <class Result>
Result expectFetched(std::optional<Result> result, const Error& error) {
  if (!result) throw std::runtime_error(error.description);
  return *std::move(result);
}

}  // namespace zenivo
