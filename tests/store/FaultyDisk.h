// A disk that fails when it is told to.

#pragma once

#include <sqlite3.h>

#include <limits>

namespace zenivo::testing {

enum class Fault {
  ioError,     ///< any operation fails
  full,        ///< writing fails
  shortWrite,  ///< writing fails half way
};

/// A SQLite VFS over the system's, there while this object lives.  For one thread.
class FaultyDisk {
 public:
  static constexpr char kName[] = "zenivo-faulty";

  FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;
  ~FaultyDisk();

  /// From now on, of the operations that may fail so, that at `place` (from 0) does,
  /// and all after it if the fault is to last.
  void failAt(int place, Fault fault, bool lasting);
  void heal() { failAt(std::numeric_limits<int>::max(), Fault::ioError, false); }
  /// Whether anything failed since failAt.
  bool hasFailed() const { return count_ > place_; }

  /// Counts an operation; whether it has to fail.
  bool strikes(bool isWrite);
  Fault fault() const { return fault_; }
  sqlite3_vfs& system() const { return system_; }

 private:
  sqlite3_vfs& system_;
  sqlite3_vfs vfs_;
  int place_ = std::numeric_limits<int>::max();
  int count_ = 0;
  Fault fault_ = Fault::ioError;
  bool lasting_ = false;
};

}  // namespace zenivo::testing
