// Mutual exclusion between processes.

#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "foundation/FileDescriptor.h"

namespace zenivo {

/// How long whoever writes a file of the user's waits for others that write it.
inline constexpr std::chrono::seconds kLockPatience{30};

/// The exclusive lock on a file, kept on a file of its own beside it: the guarded file
/// may be replaced while it is locked.  The lock file is never removed, which would let
/// two processes hold two different locks.  The system lets go of a lock when the
/// process ends, however it ends.
class FileLock {
 public:
  /// Opens the lock file of `guarded`, making it where it is missing, with the mode of
  /// the guarded file, so that whoever may write that may lock it; private to the user
  /// while there is none.  Nullopt with the reason in `error` when it cannot be opened.
  static std::optional<FileLock> open(const std::filesystem::path& guarded, const char* suffix,
                                      std::error_code& error);

  /// Waits for the lock; false when it does not come free in time.  Excludes other
  /// objects of this process too.
  bool acquire(std::chrono::milliseconds patience = kLockPatience) const;
  void release() const;

 private:
  explicit FileLock(FileDescriptor file) : file_(std::move(file)) {}

  FileDescriptor file_;
};

}  // namespace zenivo
