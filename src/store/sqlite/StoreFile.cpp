#include "store/sqlite/StoreFile.h"

#include <sys/stat.h>

#include <cerrno>
#include <map>
#include <system_error>

#include "store/sqlite/SqliteFailure.h"
#include "store/sqlite/ValueTable.h"

namespace zenivo::sqlite {
namespace {

constexpr int kLogPagesToCheckpoint = 1000;
constexpr std::size_t kIdleReaders = 4;

/// The files that are open in this process, by path and use.
struct OpenFiles {
  std::mutex mutex;
  std::map<std::string, std::weak_ptr<StoreFile>> files;
};

OpenFiles& openFiles() {
  static OpenFiles files;
  return files;
}

std::filesystem::path beside(const std::filesystem::path& file, const char* suffix) {
  return std::filesystem::path(file).concat(suffix);
}

bool isEmptyOrMissing(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  return error || size == 0;
}

/// Which file a path leads to: another one once it was replaced.
std::optional<FileIdentity> identityOf(const std::filesystem::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

/// Throws unless the database is a store or holds nothing at all.
void requireStore(Connection& connection) {
  const bool isEmpty = connection.integerOf("SELECT count(*) FROM sqlite_schema") == 0;
  if (!isEmpty && connection.integerOf("PRAGMA application_id") != kApplicationId) {
    throw StoreFailure(StoreErrorCode::notAStore, "the file is a database of another program");
  }
}

/// Throws when the end of the file is missing.  What the write-ahead log holds may
/// lie beyond the file's end for good reason, so with a log nothing is known yet.
void requireWhole(Connection& connection, const std::filesystem::path& file) {
  if (!isEmptyOrMissing(beside(file, "-wal")) || isEmptyOrMissing(file)) return;
  const auto bytes = static_cast<std::uintmax_t>(connection.integerOf("PRAGMA page_count") *
                                                 connection.integerOf("PRAGMA page_size"));
  if (std::filesystem::file_size(file) < bytes) {
    throw StoreFailure(StoreErrorCode::damagedFile, "the store is damaged: its end is missing");
  }
}

int notePages(void* pages, sqlite3*, const char*, int count) {
  *static_cast<int*>(pages) = count;
  return SQLITE_OK;
}

}  // namespace

std::shared_ptr<StoreFile> StoreFile::open(const std::filesystem::path& file,
                                           const FileOptions& options) {
  const std::filesystem::path path = std::filesystem::weakly_canonical(file);
  const std::string use = options.vfs + (options.readOnly ? "\nread\n" : "\nwrite\n");
  OpenFiles& open = openFiles();
  const std::lock_guard<std::mutex> guard(open.mutex);
  std::weak_ptr<StoreFile>& known = open.files[use + path.string()];
  std::shared_ptr<StoreFile> shared = known.lock();
  if (!shared || !shared->isInPlace()) {
    shared = std::make_shared<StoreFile>(path, options);
    known = shared;
  }
  return shared;
}

StoreFile::StoreFile(std::filesystem::path file, const FileOptions& options)
    : path_(std::move(file)), options_(options) {
  if (isEmptyOrMissing(path_) && !options_.readOnly) {
    const Locked locked(*this);
    openWriter();
  } else {
    openReader();
  }
}

StoreFile::~StoreFile() {
  idleReaders_.clear();
  if (!writer_) return;
  // The last connection of all processes empties the log as it closes.
  if (!lock_->acquire()) return;
  if (isInPlace()) writer_->checkpointsOnClosing(true);
  writer_.reset();
  lock_->release();
}

bool StoreFile::isInPlace() const {
  return identity_ && identityOf(path_) == identity_;
}

void StoreFile::requireInPlace() const {
  if (!isInPlace()) {
    throw StoreFailure(StoreErrorCode::missingFile,
                       "the store's file was removed or replaced while it was open");
  }
}

/// Opens and tries a reading connection.
void StoreFile::openReader() {
  identity_ = identityOf(path_);
  if (!identity_) throw StoreFailure(StoreErrorCode::missingFile, "there is no such store");
  const auto tryIt = [this] {
    auto reader = connect(readAccess_);
    requireStore(*reader);
    requireWhole(*reader, path_);
    return reader;
  };
  try {
    idleReaders_.push_back(tryIt());
  } catch (const SqliteFailure& failure) {
    // A file in WAL mode wants companions.  Where they cannot be, in a folder that nobody
    // can write or on a full disk, nobody has the file open to write it either.
    if (!failure.lacksCompanions() || !isEmptyOrMissing(beside(path_, "-wal"))) throw;
    readAccess_ = Access::immutable;
    idleReaders_.push_back(tryIt());
  }
}

/// Opens the writing connection, and with it makes a file that is missing.  Under the lock.
void StoreFile::openWriter() {
  if (identity_) requireInPlace();  // opening would make it again
  auto writer = connect(Access::write);
  if (!identity_) identity_ = identityOf(path_);
  requireInPlace();
  if (sqlite3_db_readonly(writer->handle(), "main") == 1) {
    throw StoreFailure(StoreErrorCode::notWritable, "the store may not be written");
  }
  requireStore(*writer);
  requireWhole(*writer, path_);
  const bool wal = options_.journal == Journal::wal;
  if (writer->textOf("PRAGMA journal_mode") != (wal ? "wal" : "delete")) {
    writer->execute(wal ? "PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=DELETE");
  }
  writer->execute("PRAGMA synchronous=FULL");
  sqlite3_wal_hook(writer->handle(), notePages, &logPages_);
  writer_ = std::move(writer);
  const std::lock_guard<std::mutex> guard(readersMutex_);
  if (readAccess_ == Access::immutable) idleReaders_.clear();
  readAccess_ = Access::read;
}

std::unique_ptr<Connection> StoreFile::connect(Access access) const {
  auto connection = std::make_unique<Connection>(path_, access, options_.vfs);
  addValueListTable(*connection);
  if (options_.equipment) options_.equipment(*connection);
  return connection;
}

void StoreFile::acquireLock() {
  if (!lock_) {
    std::error_code error;
    lock_ = FileLock::open(path_, "-lock", error);
    if (!lock_) {
      const bool forbidden = error.value() == EACCES || error.value() == EROFS;
      if (forbidden)
        throw StoreFailure(StoreErrorCode::notWritable, "the store may not be written");
      throw StoreFailure(StoreErrorCode::missingFile,
                         "the store's lock file cannot be made: " + error.message());
    }
  }
  if (!lock_->acquire()) {
    throw StoreFailure(StoreErrorCode::busy, "another process keeps the store locked");
  }
}

void StoreFile::checkpointIfLong() {
  if (logPages_ < kLogPagesToCheckpoint) return;
  // The save is safe in the log, so a failure here only leaves the log longer.
  sqlite3_wal_checkpoint_v2(writer_->handle(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr,
                            nullptr);
}

StoreFile::Locked::Locked(StoreFile& file) : file_(file), turn_(file.writerTurn_) {
  file.acquireLock();
}

StoreFile::Locked::~Locked() {
  file_.lock_->release();
}

StoreFile::Reading::Reading(StoreFile& file) : file_(file) {
  {
    const std::lock_guard<std::mutex> guard(file.readersMutex_);
    access_ = file.readAccess_;
    if (!file.idleReaders_.empty()) {
      connection_ = std::move(file.idleReaders_.back());
      file.idleReaders_.pop_back();
    }
  }
  if (connection_) return;
  connection_ = file.connect(access_);
  file.requireInPlace();
}

StoreFile::Reading::~Reading() {
  connection_->rollback();
  const std::lock_guard<std::mutex> guard(file_.readersMutex_);
  const bool isOfUse = access_ == file_.readAccess_;  // else a writer has come meanwhile
  if (isOfUse && file_.idleReaders_.size() < kIdleReaders) {
    file_.idleReaders_.push_back(std::move(connection_));
  }
}

void StoreFile::Reading::snapshot() {
  connection_->run("BEGIN");
}

StoreFile::Writing::Writing(StoreFile& file, ForeignKeys foreignKeys) : locked_(file), file_(file) {
  if (!file.writer_) file.openWriter();
  file.requireInPlace();
  file.writer_->enforcesForeignKeys(foreignKeys == ForeignKeys::enforced);
  file.writer_->run("BEGIN IMMEDIATE");
}

StoreFile::Writing::~Writing() {
  file_.writer_->rollback();
}

void StoreFile::Writing::commit() {
  file_.writer_->run("COMMIT");
  file_.checkpointIfLong();
}

}  // namespace zenivo::sqlite
