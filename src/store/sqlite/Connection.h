// One connection to a database file.

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "store/sqlite/Statement.h"

namespace zenivo::sqlite {

/// How a connection uses its file.
enum class Access {
  write,      ///< reads and writes; makes the file where it is missing
  read,       ///< reads a file that others may write
  immutable,  ///< reads a file that nobody writes, in a folder that nobody can write
};

/// A connection that trusts neither the file nor the schema in it (no trigger runs, no
/// view answers), with a cache of prepared statements.  For one thread at a time.  Failing calls
/// throw SqliteFailure.
class Connection {
 public:
  /// A statement on loan from the cache; goes back when this object dies.
  class Lease {
   public:
    Lease(Connection& owner, std::unique_ptr<Statement>& slot)
        : owner_(owner), slot_(slot), statement_(std::move(slot)) {}
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    ~Lease();
    Statement* operator->() const { return statement_.get(); }
    Statement& operator*() const { return *statement_; }

   private:
    Connection& owner_;
    std::unique_ptr<Statement>& slot_;
    std::unique_ptr<Statement> statement_;
  };

  /// Opens the file through the named VFS (empty: the system's).
  Connection(const std::filesystem::path& file, Access access, const std::string& vfs);

  /// The prepared form of a text, from the cache where possible.
  Lease prepare(std::string_view sql);

  /// Runs statements that take and give nothing.
  void execute(const std::string& sql);
  /// Runs one such statement, prepared for the next time.
  void run(std::string_view sql) { prepare(sql)->run(); }

  /// The first column of the first row; `otherwise` when there is no row.
  std::int64_t integerOf(std::string_view sql, std::int64_t otherwise = 0);
  std::string textOf(std::string_view sql);

  /// Rows changed by the statement that ran last.
  int changes() const { return sqlite3_changes(handle_.get()); }
  bool inTransaction() const { return sqlite3_get_autocommit(handle_.get()) == 0; }
  /// Gives up the transaction in progress, if any; never throws.
  void rollback() noexcept;

  /// Whether rows may refer to missing ones; between transactions only.
  void enforcesForeignKeys(bool enforces);
  /// Whether closing, as the last connection of all processes, empties the log.
  void checkpointsOnClosing(bool checkpoints);

  sqlite3* handle() const { return handle_.get(); }

 private:
  /// Statements are long and begin alike: their ends and lengths tell them apart.
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      constexpr std::size_t kEnd = 64;
      const std::size_t skipped = text.size() > kEnd ? text.size() - kEnd : 0;
      return std::hash<std::string_view>{}(text.substr(skipped)) ^ text.size();
    }
  };
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };

  void configure();

  std::unique_ptr<sqlite3, Closer> handle_;
  std::unordered_map<std::string, std::unique_ptr<Statement>, TextHash, std::equal_to<>> cache_;
  int leases_ = 0;
};

}  // namespace zenivo::sqlite
