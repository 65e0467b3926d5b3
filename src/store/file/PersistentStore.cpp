#include "store/file/PersistentStore.h"

#include <fmt/format.h>

#include "foundation/Uuid.h"
#include "store/file/SqlQuery.h"
#include "store/file/StoreCatalogue.h"
#include "store/file/StoreMigration.h"
#include "store/file/StoreWriter.h"
#include "store/model/StoreError.h"

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

void makeWhereEmpty(StoreFile& file, const ManagedObjectModel& model,
                    const std::string& identifier) {
  if (!isEmpty(file)) return;
  if (file.isReadOnly()) throw StoreFailure(StoreErrorCode::damagedFile, "the file is empty");
  StoreFile::Writing writing(file);
  if (!isEmptyDatabase(*writing)) return;  // another process was faster
  makeStore(*writing, model, identifier.empty() ? uuidString() : identifier);
  writing.commit();
}

StoreCatalogue migrated(StoreFile& file, const ManagedObjectModel& model) {
  StoreFile::Writing writing(file, StoreFile::ForeignKeys::ignored);
  const StoreCatalogue before = readCatalogue(*writing);
  if (before.entityVersionHashes() != model.entityVersionHashesByName()) {
    migrateStore(*writing, before, model);
    writing.commit();
  }
  return readCatalogue(*writing);
}

/// The catalogue once it is that of the model.
StoreCatalogue matchingCatalogue(StoreFile& file, const ManagedObjectModel& model,
                                 const StoreOptions& options) {
  StoreCatalogue catalogue = catalogueOf(file);
  if (catalogue.entityVersionHashes() == model.entityVersionHashesByName()) return catalogue;
  if (!options.migratesAutomatically || !options.infersMapping || options.readOnly) {
    throw StoreFailure(StoreErrorCode::incompatibleModel,
                       "the store was made with another version of the model");
  }
  return migrated(file, model);
}

}  // namespace

PersistentStore::PersistentStore(const std::filesystem::path& file,
                                 std::shared_ptr<const ManagedObjectModel> model,
                                 const StoreOptions& options)
    : model_(std::move(model)), file_(StoreFile::open(file, fileOptions(options))) {
  makeWhereEmpty(*file_, *model_, options.identifier);
  const StoreCatalogue catalogue = matchingCatalogue(*file_, *model_, options);
  EntityNumbers numbers;
  for (const CatalogueEntity& entity : catalogue.entities) {
    numbers.add(entity.number, *model_->entityNamed(entity.name));
  }
  identifier_ = internStoreIdentifier(catalogue.identifier);
  tables_ = std::make_unique<StoreTables>(model_, std::move(numbers), identifier_);
}

void PersistentStore::fetch(const FetchRequest& request, RowReceiver& receiver) {
  const StoreFile::Reading reading(*file_);
  tables_->fetch(*reading, request, receiver);
}

std::size_t PersistentStore::count(const FetchRequest& request) {
  const StoreFile::Reading reading(*file_);
  return tables_->count(*reading, request);
}

void PersistentStore::rows(const ObjectIDs& ids, RowReceiver& receiver) {
  StoreFile::Reading reading(*file_);
  if (ids.size() > 1) reading.snapshot();
  tables_->rows(*reading, ids, receiver);
}

std::vector<ObjectIDs> PersistentStore::destinations(const ObjectIDs& owners,
                                                     const RelationshipDescription& relationship) {
  const StoreFile::Reading reading(*file_);
  return tables_->destinations(*reading, owners, relationship);
}

void PersistentStore::requireWritable() const {
  if (isReadOnly()) throw StoreFailure(StoreErrorCode::notWritable, "the store is read-only");
}

SaveOutcome PersistentStore::save(const SaveRequest& request) {
  requireWritable();
  StoreFile::Writing writing(*file_);
  return StoreWriter(writing, *tables_, request).write();
}

ObjectIDs PersistentStore::obtainPermanentIDs(const ObjectIDs& temporary) {
  requireWritable();
  StoreFile::Writing writing(*file_);
  std::int64_t key = reserveKeys(*writing, temporary.size());
  writing.commit();
  ObjectIDs permanent;
  permanent.reserve(temporary.size());
  for (const ObjectID& id : temporary) permanent.push_back(tables_->makeID(id.entity(), key++));
  return permanent;
}

std::optional<ObjectID> PersistentStore::localID(const ObjectURI& uri) const {
  const EntityDescription* entity = model_->entityNamed(uri.entity);
  if (entity == nullptr || uri.store != *identifier_) return std::nullopt;
  return tables_->makeID(*entity, uri.key);
}

StoreMetadata PersistentStore::metadata() const {
  StoreCatalogue catalogue = catalogueOf(*file_);
  return {.identifier = catalogue.identifier,
          .entityVersionHashes = catalogue.entityVersionHashes(),
          .values = std::move(catalogue.values)};
}

void PersistentStore::setMetadataValues(const std::map<std::string, Value>& values) {
  requireWritable();
  StoreFile::Writing writing(*file_);
  writeValues(*writing, values);
  writing.commit();
}

void PersistentStore::copyTo(const std::filesystem::path& newFile) const {
  const StoreFile::Reading reading(*file_);
  const sqlite::Connection::Lease statement = reading->prepare("VACUUM INTO ?1");
  const std::string path = newFile.string();
  statement->bind(1, std::string_view(path));
  statement->run();
}

StoreMetadata readMetadata(const std::filesystem::path& file) {
  const auto opened = StoreFile::open(file, fileOptions({.readOnly = true}));
  if (isEmpty(*opened)) throw StoreFailure(StoreErrorCode::notAStore, "the file is empty");
  StoreCatalogue catalogue = catalogueOf(*opened);
  return {.identifier = catalogue.identifier,
          .entityVersionHashes = catalogue.entityVersionHashes(),
          .values = std::move(catalogue.values)};
}

}  // namespace zenivo
