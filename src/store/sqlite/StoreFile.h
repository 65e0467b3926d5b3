// A store's database file, shared by everything in this process that uses it.

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "foundation/FileLock.h"
#include "store/sqlite/Connection.h"

namespace zenivo::sqlite {

/// What SQLite finds in the header of a store's file ("ZNVS").
inline constexpr int kApplicationId = 0x5a4e5653;

/// Where changes lie until they are in the database file itself.
enum class Journal {
  wal,       ///< in a write-ahead log: readers and the writer do not wait for each other
  rollback,  ///< in place: one file alone, for a catalogue that is only read once made
};

/// How to open a file; see docs/store-format.md for the rules that follow.
struct FileOptions {
  bool readOnly = false;
  Journal journal = Journal::wal;
  std::string vfs;                             ///< SQLite VFS by name; empty: the system's
  std::function<void(Connection&)> equipment;  ///< adds functions to each new connection
};

/// Tells one file from another that took its path.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The file with its one writing connection and as many reading ones as are in use
/// at once.  Safe to use from any thread.
///
/// Reading takes no lock, writes nothing and needs no room on the disk: the writing
/// connection is opened for the first transaction, or to make a file that is missing.
class StoreFile {
 public:
  /// Opens the file, or joins those in this process that have it open already, unless
  /// another file has taken its place.  Refuses, and leaves as it is, whatever is neither a store
  /// nor empty.
  static std::shared_ptr<StoreFile> open(const std::filesystem::path& file,
                                         const FileOptions& options);

  StoreFile(std::filesystem::path file, const FileOptions& options);
  StoreFile(const StoreFile&) = delete;
  StoreFile& operator=(const StoreFile&) = delete;
  ~StoreFile();

  /// A reading connection on loan.  What one statement reads is consistent; a
  /// snapshot over several takes a transaction (see `snapshot`).
  class Reading {
   public:
    explicit Reading(StoreFile& file);
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading();
    Connection& operator*() const { return *connection_; }
    Connection* operator->() const { return connection_.get(); }
    /// From now on everything read belongs to one moment.
    void snapshot();

   private:
    StoreFile& file_;
    Access access_ = Access::read;
    std::unique_ptr<Connection> connection_;
  };

  /// The turn to write: alone in this process and in all others.
  class Locked {
   public:
    explicit Locked(StoreFile& file);
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked();

   private:
    StoreFile& file_;
    const std::lock_guard<std::mutex> turn_;
  };

  /// Whether a transaction keeps rows from referring to missing ones.
  enum class ForeignKeys { enforced, ignored };

  /// The writing connection in a transaction of its own, which is undone unless it
  /// was committed.
  class Writing {
   public:
    explicit Writing(StoreFile& file, ForeignKeys foreignKeys = ForeignKeys::enforced);
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    ~Writing();
    Connection& operator*() const { return *file_.writer_; }
    Connection* operator->() const { return file_.writer_.get(); }
    /// Returns once the changes are on the disk.
    void commit();

   private:
    const Locked locked_;
    StoreFile& file_;
  };

  const std::filesystem::path& path() const { return path_; }
  bool isReadOnly() const { return options_.readOnly; }

 private:
  bool isInPlace() const;
  void requireInPlace() const;
  void openReader();
  void openWriter();
  std::unique_ptr<Connection> connect(Access access) const;
  void acquireLock();
  void checkpointIfLong();

  const std::filesystem::path path_;
  const FileOptions options_;
  std::optional<FileIdentity> identity_;  // once it is open

  std::mutex writerTurn_;
  std::optional<FileLock> lock_;
  std::unique_ptr<Connection> writer_;
  int logPages_ = 0;  // of the write-ahead log after the last commit

  std::mutex readersMutex_;
  Access readAccess_ = Access::read;
  std::vector<std::unique_ptr<Connection>> idleReaders_;
};

}  // namespace zenivo::sqlite
