#include "store/file/PersistentStoreCoordinator.h"

#include <system_error>

#include "store/file/PersistentStore.h"

namespace zenivo {
namespace {

Error withFile(Error error, const std::filesystem::path& file) {
  error.userInfo["file"] = file.string();
  return error;
}

}  // namespace

bool isModelCompatibleWithStoreMetadata(const ManagedObjectModel& model,
                                        const StoreMetadata& metadata) {
  return model.entityVersionHashesByName() == metadata.entityVersionHashes;
}

PersistentStoreCoordinator::PersistentStoreCoordinator(
    std::shared_ptr<const ManagedObjectModel> model)
    : model_(std::move(model)) {}

PersistentStoreCoordinator::~PersistentStoreCoordinator() = default;

std::shared_ptr<PersistentStore> PersistentStoreCoordinator::addPersistentStore(
    const std::filesystem::path& file, const StoreOptions& options, Error* error) {
  try {
    if (persistentStore() != nullptr) {
      throw StoreFailure(StoreErrorCode::invalidRequest, "the coordinator has a store already");
    }
    auto store = std::make_shared<PersistentStore>(file, model_, options);
    const std::lock_guard<std::mutex> guard(mutex_);
    store_ = store;
    return store;
  } catch (...) {
    fail(error, withFile(errorOfCurrentException(), file));
    return nullptr;
  }
}

void PersistentStoreCoordinator::removePersistentStore() {
  std::shared_ptr<PersistentStore> removed;
  const std::lock_guard<std::mutex> guard(mutex_);
  removed.swap(store_);
}

std::shared_ptr<PersistentStore> PersistentStoreCoordinator::persistentStore() const {
  const std::lock_guard<std::mutex> guard(mutex_);
  return store_;
}

std::shared_ptr<PersistentStore> PersistentStoreCoordinator::migratePersistentStore(
    const std::filesystem::path& newFile, const StoreOptions& options, Error* error) {
  bool made = false;
  try {
    const std::shared_ptr<PersistentStore> source = persistentStore();
    if (source == nullptr) throw StoreFailure(StoreErrorCode::noStore, "there is no store");
    if (std::filesystem::exists(newFile)) {
      throw StoreFailure(StoreErrorCode::notWritable, "there is such a file already");
    }
    made = true;
    source->copyTo(newFile);
    auto copy = std::make_shared<PersistentStore>(newFile, model_, options);
    const std::lock_guard<std::mutex> guard(mutex_);
    store_ = copy;
    return copy;
  } catch (...) {
    fail(error, withFile(errorOfCurrentException(), newFile));
    std::error_code ignored;
    if (made) std::filesystem::remove(newFile, ignored);
    return nullptr;
  }
}

std::optional<ObjectID> PersistentStoreCoordinator::managedObjectIDForURIRepresentation(
    std::string_view uri, Error* error) const {
  try {
    const std::shared_ptr<PersistentStore> store = persistentStore();
    return store != nullptr ? store->idNamed(parseObjectURI(uri)) : std::nullopt;
  } catch (...) {
    fail(error, errorOfCurrentException());
    return std::nullopt;
  }
}

std::optional<ObjectID> PersistentStoreCoordinator::localID(const ObjectID& id) const {
  const std::shared_ptr<PersistentStore> store = persistentStore();
  return store != nullptr ? store->localID(id) : std::nullopt;
}

std::optional<StoreMetadata> PersistentStoreCoordinator::metadata(Error* error) const {
  try {
    const std::shared_ptr<PersistentStore> store = persistentStore();
    if (store == nullptr) throw StoreFailure(StoreErrorCode::noStore, "there is no store");
    return store->metadata();
  } catch (...) {
    fail(error, errorOfCurrentException());
    return std::nullopt;
  }
}

bool PersistentStoreCoordinator::setMetadataValues(const std::map<std::string, Value>& values,
                                                   Error* error) {
  try {
    const std::shared_ptr<PersistentStore> store = persistentStore();
    if (store == nullptr) throw StoreFailure(StoreErrorCode::noStore, "there is no store");
    store->setMetadataValues(values);
    return true;
  } catch (...) {
    return fail(error, errorOfCurrentException());
  }
}

std::optional<StoreMetadata> PersistentStoreCoordinator::metadataForPersistentStore(
    const std::filesystem::path& file, Error* error) {
  try {
    return readMetadata(file);
  } catch (...) {
    fail(error, withFile(errorOfCurrentException(), file));
    return std::nullopt;
  }
}

std::shared_ptr<ObjectSource> PersistentStoreCoordinator::objectSource() const {
  std::shared_ptr<PersistentStore> store = persistentStore();
  if (store == nullptr) {
    throw StoreFailure(StoreErrorCode::noStore, "the coordinator has no store");
  }
  return store;
}

}  // namespace zenivo
