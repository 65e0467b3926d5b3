#include "store/file/PersistentStore.h"

#include <fmt/format.h>

#include <algorithm>
#include <system_error>

#include "foundation/AtomicFile.h"
#include "foundation/Log.h"
#include "foundation/Uuid.h"
#include "store/file/SqlQuery.h"
#include "store/file/StoreCatalogue.h"
#include "store/file/StoreMigration.h"
#include "store/file/StoreWriter.h"
#include "store/model/ModelVersion.h"
#include "store/model/StoreError.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo {
namespace {

using sqlite::StoreFile;

sqlite::FileOptions fileOptions(const StoreOptions& options) {
  return {.readOnly = options.readOnly,
          .journal = options.journalMode == JournalMode::wal ? sqlite::Journal::wal
                                                             : sqlite::Journal::rollback,
          .vfs = options.vfs,
          .equipment = addPredicateFunctions};
}

StoreCatalogue catalogueOf(StoreFile& file) {
  StoreFile::Reading reading(file);
  reading.snapshot();
  return readCatalogue(*reading);
}

bool isEmpty(StoreFile& file) {
  const StoreFile::Reading reading(file);
  return isEmptyDatabase(*reading);
}

void copyStore(StoreFile& file, const std::filesystem::path& newFile) {
  const StoreFile::Reading reading(file);
  const sqlite::Connection::Lease statement = reading->prepare("VACUUM INTO ?1");
  const std::string path = newFile.string();
  statement->bind(1, std::string_view(path));
  statement->run();
}

/// Throws for a store that is neither of the model's version nor of a released one before
/// it: of what it holds nothing is known, so nothing may be left out.
void requireKnown(const StoreCatalogue& catalogue, const ManagedObjectModel& model) {
  if (catalogue.isOfVersion(model)) return;
  if (!model.isReleasedVersion(modelHashOf(catalogue.entityVersionHashes()))) throw newerStore();
}

void makeWhereEmpty(StoreFile& file, const ManagedObjectModel& model,
                    const std::string& identifier) {
  if (!isEmpty(file)) return;
  if (file.isReadOnly()) throw StoreFailure(StoreErrorCode::damagedFile, "the file is empty");
  StoreFile::Writing writing(file);
  if (!isEmptyDatabase(*writing)) return;  // another process was faster
  makeStore(*writing, model, identifier.empty() ? uuidString() : identifier);
  writing.commit();
}

StoreFailure olderStore() {
  return {StoreErrorCode::incompatibleModel, "an older Zenivo made the store"};
}

/// The store as it is now, beside it.
std::filesystem::path keepCopy(StoreFile& file) {
  const std::filesystem::path copy = freeNameBeside(file.path(), ".old");
  copyStore(file, copy);
  log(LogLevel::info,
      fmt::format("the store is kept as {} before it loses entities or properties", copy.string()));
  return copy;
}

StoreCatalogue migrated(StoreFile& file, const ManagedObjectModel& model) {
  StoreFile::Writing writing(file, StoreFile::ForeignKeys::ignored);
  const StoreCatalogue before = readCatalogue(*writing);
  requireKnown(before, model);
  if (before.isUpToDate(model)) return before;  // another process was faster
  const ModelDifference difference = inferModelDifference(before, model);
  std::filesystem::path copy;
  try {
    if (difference.losesValues()) copy = keepCopy(file);
    migrateStore(*writing, difference, model);
    writing.commit();
  } catch (...) {
    std::error_code ignored;
    if (!copy.empty()) std::filesystem::remove(copy, ignored);
    throw;
  }
  return readCatalogue(*writing);
}

/// The catalogue once it is of the model's version.
StoreCatalogue usableCatalogue(StoreFile& file, const ManagedObjectModel& model,
                               const StoreOptions& options) {
  StoreCatalogue catalogue = catalogueOf(file);
  requireKnown(catalogue, model);
  if (catalogue.isOfVersion(model)) return catalogue;
  if (!options.migratesAutomatically || !options.infersMapping || options.readOnly) {
    throw olderStore();
  }
  return migrated(file, model);
}

StoreMetadata metadataOf(const StoreCatalogue& catalogue) {
  return {.identifier = catalogue.identifier,
          .entityVersionHashes = catalogue.entityVersionHashes(),
          .values = catalogue.values};
}

}  // namespace

PersistentStore::PersistentStore(const std::filesystem::path& file,
                                 std::shared_ptr<const ManagedObjectModel> model,
                                 const StoreOptions& options)
    : model_(std::move(model)), file_(StoreFile::open(file, fileOptions(options))) {
  makeWhereEmpty(*file_, *model_, options.identifier);
  const StoreCatalogue catalogue = usableCatalogue(*file_, *model_, options);
  EntityNumbers numbers;
  for (const CatalogueEntity& entity : catalogue.entities) {
    numbers.add(entity.number, *model_->entityNamed(entity.name));
  }
  identifier_ = internStoreIdentifier(catalogue.identifier);
  tables_ = std::make_unique<StoreTables>(model_, std::move(numbers), identifier_);
  isUpToDate_ = catalogue.isUpToDate(*model_);
  saves_ = catalogue.saves;
}

/// What the operation reads.  Where the tables are not as the model has them any more,
/// another process may have migrated the store.
template <class Operation>
auto PersistentStore::read(const Operation& operation) const {
  StoreFile::Reading reading(*file_);
  try {
    return operation(reading);
  } catch (const sqlite::SqliteFailure& failure) {
    if (failure.isOfSchema()) requireKnown(readCatalogue(*reading), *model_);
    throw;
  }
}

void PersistentStore::fetch(const FetchRequest& request, RowReceiver& receiver) {
  read([&](StoreFile::Reading& reading) { tables_->fetch(*reading, request, receiver); });
}

std::size_t PersistentStore::count(const FetchRequest& request) {
  return read([&](StoreFile::Reading& reading) { return tables_->count(*reading, request); });
}

void PersistentStore::rows(const ObjectIDs& ids, RowReceiver& receiver) {
  read([&](StoreFile::Reading& reading) {
    if (ids.size() > 1) reading.snapshot();
    tables_->rows(*reading, ids, receiver);
  });
}

std::vector<ObjectIDs> PersistentStore::destinations(const ObjectIDs& owners,
                                                     const RelationshipDescription& relationship) {
  return read([&](StoreFile::Reading& reading) {
    return tables_->destinations(*reading, owners, relationship);
  });
}

/// A store that is of the model's version is put into its present form when it is first
/// written, so that reading writes nothing.
void PersistentStore::prepareToWrite() {
  if (isReadOnly()) throw StoreFailure(StoreErrorCode::notWritable, "the store may not be written");
  if (isUpToDate_) return;
  saves_ = migrated(*file_, *model_).saves;
  isUpToDate_ = true;
}

/// Throws when, after others wrote the store, its rows are not of this model any more.
void PersistentStore::requireOwnModel(sqlite::Connection& connection, std::int64_t saves) const {
  if (saves == saves_) return;
  const StoreCatalogue catalogue = readCatalogue(connection);
  requireKnown(catalogue, *model_);
  const bool hasOwnNumbers = std::ranges::all_of(catalogue.entities, [&](const auto& entity) {
    const EntityDescription* own = tables_->numbers().entityOf(entity.number);
    return own != nullptr && own->name() == entity.name;
  });
  if (!catalogue.isOfVersion(*model_) || !hasOwnNumbers) throw newerStore();
}

SaveOutcome PersistentStore::save(const SaveRequest& request) {
  prepareToWrite();
  StoreFile::Writing writing(*file_);
  const std::int64_t saves = countSave(*writing);
  requireOwnModel(*writing, saves - 1);
  SaveOutcome outcome = StoreWriter(writing, *tables_, request).write();
  saves_ = saves;
  return outcome;
}

ObjectIDs PersistentStore::obtainPermanentIDs(const ObjectIDs& temporary) {
  prepareToWrite();
  StoreFile::Writing writing(*file_);
  requireOwnModel(*writing, saveCount(*writing));
  std::int64_t key = reserveKeys(*writing, temporary.size());
  writing.commit();
  ObjectIDs permanent;
  permanent.reserve(temporary.size());
  for (const ObjectID& id : temporary) permanent.push_back(tables_->makeID(id.entity(), key++));
  return permanent;
}

std::optional<ObjectID> PersistentStore::idNamed(const ObjectURI& uri) const {
  const EntityDescription* entity = model_->entityNamed(uri.entity);
  if (entity == nullptr || uri.store != *identifier_) return std::nullopt;
  const EntityDescription* found =
      read([&](StoreFile::Reading& reading) { return tables_->entityOfRow(*reading, uri.key); });
  if (found != nullptr && found != entity) return std::nullopt;
  return tables_->makeID(*entity, uri.key);
}

std::optional<ObjectID> PersistentStore::localID(const ObjectID& id) const {
  const EntityDescription* entity = model_->entityNamed(id.entity().name());
  if (entity == nullptr || id.storeIdentifier() != *identifier_) return std::nullopt;
  return tables_->makeID(*entity, id.key());
}

StoreMetadata PersistentStore::metadata() const {
  return metadataOf(catalogueOf(*file_));
}

void PersistentStore::setMetadataValues(const std::map<std::string, Value>& values) {
  prepareToWrite();
  StoreFile::Writing writing(*file_);
  requireOwnModel(*writing, saveCount(*writing));
  writeValues(*writing, values);
  writing.commit();
}

void PersistentStore::copyTo(const std::filesystem::path& newFile) const {
  copyStore(*file_, newFile);
}

StoreMetadata readMetadata(const std::filesystem::path& file) {
  const auto opened = StoreFile::open(file, fileOptions({.readOnly = true}));
  if (isEmpty(*opened)) throw StoreFailure(StoreErrorCode::notAStore, "the file is empty");
  return metadataOf(catalogueOf(*opened));
}

}  // namespace zenivo
