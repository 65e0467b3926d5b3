// A store file that is open with a model.

#pragma once

#include <atomic>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "store/file/ObjectSource.h"
#include "store/file/PersistentStoreCoordinator.h"
#include "store/file/StoreTables.h"
#include "store/sqlite/StoreFile.h"

namespace zenivo {

/// The objects of one store file.  Safe to use from any thread; failures throw, see
/// ObjectSource.
class PersistentStore : public ObjectSource {
 public:
  /// Opens the file with the model: makes it where it is missing, migrates it where
  /// the options ask for it.
  PersistentStore(const std::filesystem::path& file,
                  std::shared_ptr<const ManagedObjectModel> model, const StoreOptions& options);

  const std::filesystem::path& path() const { return file_->path(); }
  /// A UUID that goes with the file, and into the identities of its objects.
  const std::string& identifier() const { return *identifier_; }
  bool isReadOnly() const { return file_->isReadOnly(); }

  void fetch(const FetchRequest& request, RowReceiver& receiver) override;
  std::size_t count(const FetchRequest& request) override;
  void rows(const ObjectIDs& ids, RowReceiver& receiver) override;
  std::vector<ObjectIDs> destinations(const ObjectIDs& owners,
                                      const RelationshipDescription& relationship) override;
  SaveOutcome save(const SaveRequest& request) override;
  ObjectIDs obtainPermanentIDs(const ObjectIDs& temporary) override;
  std::unordered_map<ObjectID, ObjectID> permanentIDsFor(const ObjectIDs&) override { return {}; }

  /// The identity that a URI names: of a row of that very entity, or of none any more.
  /// Nullopt for another store's, for a row of another entity, and for entities that the
  /// model does not have.
  std::optional<ObjectID> idNamed(const ObjectURI& uri) const;
  /// The identity as this store's model has it, where another coordinator's may differ.
  std::optional<ObjectID> localID(const ObjectID& id) const;

  StoreMetadata metadata() const;
  void setMetadataValues(const std::map<std::string, Value>& values);

  /// Writes the whole store to a new file.
  void copyTo(const std::filesystem::path& newFile) const;

 private:
  template <class Operation>
  auto read(const Operation& operation) const;
  void prepareToWrite();
  void requireOwnModel(sqlite::Connection& connection, std::int64_t saves) const;

  const std::shared_ptr<const ManagedObjectModel> model_;
  std::shared_ptr<sqlite::StoreFile> file_;
  const std::string* identifier_ = nullptr;
  std::unique_ptr<const StoreTables> tables_;
  std::atomic<bool> isUpToDate_ = true;
  std::atomic<std::int64_t> saves_ = 0;  ///< the store's count when this model was last seen in it
};

/// What a store file says about itself, without a model.
StoreMetadata readMetadata(const std::filesystem::path& file);

}  // namespace zenivo
