// The user's store and the catalogue, as commands use them.

#pragma once

#include <memory>
#include <string>

#include "data/stores/Database.h"
#include "store/StoreError.h"

namespace zenivo::cli {

/// The two stores of the program.  What cannot be opened or fetched is thrown as a
/// std::runtime_error with the text for the user.
class Stores {
 public:
  Stores();

  Database& database() { return database_; }

  ManagedObjectContext& catalogue();
  /// The user's store, made where there is none.
  ManagedObjectContext& own();
  /// Whether the user has one already.  Nothing that only reads should make it.
  bool hasOwn() const;

 private:
  struct Listener;

  ManagedObjectContext& opened(const std::shared_ptr<ManagedObjectContext>& context);

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

}  // namespace zenivo::cli
