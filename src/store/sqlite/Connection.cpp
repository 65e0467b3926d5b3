#include "store/sqlite/Connection.h"

#include "store/sqlite/SqliteFailure.h"

namespace zenivo::sqlite {
namespace {

constexpr int kBusyMilliseconds = 30'000;
constexpr std::size_t kCachedStatements = 200;
constexpr int kCacheKilobytes = 8'000;  // at most, of a file's pages

/// The URI of a file; its reserved characters escaped.
std::string uriOf(const std::filesystem::path& file) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : std::filesystem::absolute(file).string()) {
    if (c == '%' || c == '?' || c == '#') {
      const auto byte = static_cast<unsigned char>(c);
      uri += {'%', kHex[byte >> 4], kHex[byte & 15]};
    } else {
      uri += c;
    }
  }
  return uri;
}

}  // namespace

Connection::Lease::~Lease() {
  statement_->reset();
  --owner_.leases_;
  if (!slot_) slot_ = std::move(statement_);
}

Connection::Connection(const std::filesystem::path& file, Access access, const std::string& vfs) {
  const bool writes = access == Access::write;
  const int flags = SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE |
                    (writes ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY);
  const std::string uri = uriOf(file) + (access == Access::immutable ? "?immutable=1" : "");
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(uri.c_str(), &opened, flags, vfs.empty() ? nullptr : vfs.c_str());
  handle_.reset(opened);
  if (code != SQLITE_OK) throwFailure(code, opened, "opening " + file.string());
  configure();
}

void Connection::configure() {
  sqlite3* connection = handle_.get();
  sqlite3_busy_timeout(connection, kBusyMilliseconds);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  // Only the one writer of a process checkpoints, under the lock of StoreFile.
  sqlite3_wal_autocheckpoint(connection, 0);
  checkpointsOnClosing(false);
  execute("PRAGMA cell_size_check=ON");
  execute("PRAGMA temp_store=MEMORY");
  execute("PRAGMA cache_size=" + std::to_string(-kCacheKilobytes));
}

void Connection::enforcesForeignKeys(bool enforces) {
  sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_ENABLE_FKEY, enforces ? 1 : 0, nullptr);
}

void Connection::checkpointsOnClosing(bool checkpoints) {
  sqlite3_db_config(handle_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, checkpoints ? 0 : 1, nullptr);
}

Connection::Lease Connection::prepare(std::string_view sql) {
  auto found = cache_.find(sql);
  if (found == cache_.end()) {
    if (cache_.size() >= kCachedStatements && leases_ == 0) cache_.clear();
    found = cache_.emplace(std::string(sql), nullptr).first;
  }
  if (!found->second) found->second = std::make_unique<Statement>(handle_.get(), sql);
  ++leases_;
  return Lease(*this, found->second);
}

void Connection::execute(const std::string& sql) {
  const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throwFailure(code, handle_.get(), sql);
}

std::int64_t Connection::integerOf(std::string_view sql, std::int64_t otherwise) {
  const Lease statement = prepare(sql);
  return statement->step() ? statement->integer(0) : otherwise;
}

std::string Connection::textOf(std::string_view sql) {
  const Lease statement = prepare(sql);
  return statement->step() ? std::string(statement->text(0)) : std::string();
}

void Connection::rollback() noexcept {
  if (!inTransaction()) return;
  try {
    run("ROLLBACK");
  } catch (const StoreFailure&) {
    // The transaction has ended all the same; what failed was tidying the disk.
  }
}

}  // namespace zenivo::sqlite
