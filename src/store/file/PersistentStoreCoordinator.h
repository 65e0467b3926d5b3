// A model and the store file that keeps objects of it.

#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "store/model/ManagedObjectModel.h"
#include "store/model/StoreError.h"

namespace zenivo {

class ObjectSource;
class PersistentStore;

/// How a store keeps its changes; see docs/store-format.md.
enum class JournalMode { wal, rollback };

struct StoreOptions {
  bool readOnly = false;
  /// Bring a store of an older model up to date as it opens …
  bool migratesAutomatically = false;
  /// … by working out the difference; there is no other way, so both are needed.
  bool infersMapping = false;
  JournalMode journalMode = JournalMode::wal;
  std::string identifier = {};  ///< of a new store; empty: a new UUID
  std::string vfs = {};         ///< SQLite VFS by name; empty: the system's
};

/// What a store tells about itself.
struct StoreMetadata {
  std::string identifier = {};
  std::map<std::string, Data> entityVersionHashes = {};
  std::map<std::string, Value> values = {};  ///< of the application
};

/// Whether a store with this metadata opens without migration.
bool isModelCompatibleWithStoreMetadata(const ManagedObjectModel& model,
                                        const StoreMetadata& metadata);

/// Joins a model to a store file.  Several coordinators, in one process or more, may
/// use one file.  Safe to use from any thread.  Failing operations give the reason in
/// `error` and leave the file as it was.
class PersistentStoreCoordinator {
 public:
  explicit PersistentStoreCoordinator(std::shared_ptr<const ManagedObjectModel> model);
  PersistentStoreCoordinator(const PersistentStoreCoordinator&) = delete;
  PersistentStoreCoordinator& operator=(const PersistentStoreCoordinator&) = delete;
  ~PersistentStoreCoordinator();

  const std::shared_ptr<const ManagedObjectModel>& managedObjectModel() const { return model_; }

  /// Opens the store, or makes it where the file is missing.  A coordinator has one
  /// store; nullptr on failure, and the coordinator stays without.
  std::shared_ptr<PersistentStore> addPersistentStore(const std::filesystem::path& file,
                                                      const StoreOptions& options = {},
                                                      Error* error = nullptr);
  /// Lets go of the store; contexts on this coordinator then fail with noStore.
  void removePersistentStore();
  /// nullptr when there is none.
  std::shared_ptr<PersistentStore> persistentStore() const;

  /// Copies the store to a new file, which must not exist, and goes on with the copy;
  /// the old file stays as it was.  nullptr on failure, and nothing changed.
  std::shared_ptr<PersistentStore> migratePersistentStore(const std::filesystem::path& newFile,
                                                          const StoreOptions& options,
                                                          Error* error = nullptr);

  /// The identity with that URI form when it belongs to the store; its row need not exist
  /// any more, but a URI that calls a row by the wrong entity names no object.
  std::optional<ObjectID> managedObjectIDForURIRepresentation(std::string_view uri,
                                                              Error* error = nullptr) const;
  /// The identity, which another coordinator on the same store may have made, as this
  /// one's model has it; nullopt for another store's.
  std::optional<ObjectID> localID(const ObjectID& id) const;

  std::optional<StoreMetadata> metadata(Error* error = nullptr) const;
  /// Replaces the application's values in the store's metadata.
  bool setMetadataValues(const std::map<std::string, Value>& values, Error* error = nullptr);
  /// The metadata of a store file without opening it for use.
  static std::optional<StoreMetadata> metadataForPersistentStore(const std::filesystem::path& file,
                                                                 Error* error = nullptr);

  /// The store as contexts use it.  Throws StoreFailure when there is none.
  std::shared_ptr<ObjectSource> objectSource() const;

 private:
  const std::shared_ptr<const ManagedObjectModel> model_;
  mutable std::mutex mutex_;
  std::shared_ptr<PersistentStore> store_;
};

}  // namespace zenivo
