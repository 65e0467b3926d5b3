// The owner of the user store and the static store.

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/stores/ManagedObjectContexts.h"
#include "store/file/PersistentStoreCoordinator.h"
#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

/// Hears of stores that could not be opened, with localised texts to be shown.
class DatabaseDelegate {
 public:
  virtual ~DatabaseDelegate() = default;
  virtual void databasePersistentStoreCoordinatorDidGetError(const std::string& /*message*/,
                                                             const std::string& /*title*/) {}
};

/// Both stores, each opened when it is first asked for.  A store that cannot be
/// opened is reported to the delegate and left as it is; its coordinator stays
/// without a store, and what is fetched from its context fails.  Belongs to the main
/// thread.
class Database {
 public:
  /// Where the two store files are.
  struct Locations {
    std::filesystem::path groupStore;
    std::filesystem::path staticStore;
  };

  explicit Database(Locations locations);

  /// The one database of the program: "Zenivo.sqlite" in the user's folder and the
  /// resource "ZenivoStatic.sqlite".
  static Database& sharedInstance();

  /// To be set before a context is first asked for.
  void setDelegate(const std::shared_ptr<DatabaseDelegate>& delegate) { delegate_ = delegate; }

  /// The main contexts, on the main queue.  In the user's, what others saved meanwhile wins.
  const std::shared_ptr<ManagedObjectContext>& managedObjectContext();
  const std::shared_ptr<ManagedObjectContext>& staticManagedObjectContext();
  ZVManagedObjectContexts managedObjectContexts();

  const std::shared_ptr<const ManagedObjectModel>& managedObjectModel() const;
  const std::shared_ptr<const ManagedObjectModel>& staticManagedObjectModel() const;
  const std::shared_ptr<PersistentStoreCoordinator>& persistentStoreCoordinator();
  const std::shared_ptr<PersistentStoreCoordinator>& staticPersistentStoreCoordinator();

  /// Why a store could not be opened; nullopt while it is open or was not tried.
  const std::optional<Error>& userStoreError() const { return user_.error; }
  const std::optional<Error>& staticStoreError() const { return static_.error; }

  /// Whether there is a user store; asking for its context makes one.
  bool hasUserStore() const;

  const std::filesystem::path& groupStoreURL() const { return locations_.groupStore; }
  std::filesystem::path groupApplicationDocumentDirectory() const {
    return locations_.groupStore.parent_path();
  }

  /// True when the user store file was made with another model than the current one;
  /// false too where there is no file yet.
  bool isMigrationNeeded() const;

  /// Moves a store from one file to another, which must not exist.  True when done;
  /// otherwise the old file is as it was and there is no new one.
  bool migrateDatabase(const std::filesystem::path& from,
                       const std::filesystem::path& toNewDatabase);

  /// Gives every object without an identifier a new one.
  void performUpdatesFrom3To4();

  /// Deletes plans, own points of interest and own cameras that repeat an earlier
  /// one (see Duplicates.h) and saves, on the main queue; the completion gets the
  /// error, or nullopt.  Without duplicates nothing is saved.
  void removeDuplicatesWithCompletion(std::function<void(std::optional<Error>)> completion);

 private:
  struct Stack {
    std::shared_ptr<PersistentStoreCoordinator> coordinator;
    std::shared_ptr<ManagedObjectContext> context;
    std::optional<Error> error;
  };

  void open(Stack& stack, const std::shared_ptr<const ManagedObjectModel>& model,
            const std::filesystem::path& file, const StoreOptions& options,
            std::string_view keyPrefix);
  void tellDelegate(const Error& error, std::string_view keyPrefix) const;

  const Locations locations_;
  std::weak_ptr<DatabaseDelegate> delegate_;
  Stack user_;
  Stack static_;
};

}  // namespace zenivo
