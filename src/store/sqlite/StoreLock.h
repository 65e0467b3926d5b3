// The lock that keeps the processes which write one store apart.

#pragma once

#include <chrono>
#include <filesystem>
#include <system_error>

namespace zenivo::sqlite {

/// An exclusive lock on a file of its own beside the database.  The file stays
/// there for good: removing it would let two processes hold two different locks.
/// The system lets go of the lock when the process ends, however it ends.
class StoreLock {
 public:
  /// Opens the lock file, making it where it is missing; `error` tells why not.
  StoreLock(const std::filesystem::path& file, std::error_code& error);
  StoreLock(const StoreLock&) = delete;
  StoreLock& operator=(const StoreLock&) = delete;
  ~StoreLock();

  /// Waits for the lock; false when it does not come free in time.
  bool acquire(std::chrono::milliseconds patience);
  void release();

 private:
  int descriptor_;
};

}  // namespace zenivo::sqlite
