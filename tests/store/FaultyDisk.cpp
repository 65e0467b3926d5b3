#include "store/FaultyDisk.h"

namespace zenivo::testing {
namespace {

/// An open file; the system's own lies behind it.
struct File {
  sqlite3_file base;  // first, as SQLite wants it
  FaultyDisk* disk;
};

FaultyDisk& diskOf(sqlite3_file* file) {
  return *reinterpret_cast<File*>(file)->disk;
}

sqlite3_file* systemFile(sqlite3_file* file) {
  return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
}

const sqlite3_io_methods& systemMethods(sqlite3_file* file) {
  return *systemFile(file)->pMethods;
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
  const auto write = systemMethods(file).xWrite;
  if (!diskOf(file).strikes(true)) return write(systemFile(file), bytes, count, offset);
  const Fault fault = diskOf(file).fault();
  if (fault == Fault::shortWrite) write(systemFile(file), bytes, count / 2, offset);
  return fault == Fault::full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
}

int readFile(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
  if (diskOf(file).strikes(false)) return SQLITE_IOERR_READ;
  return systemMethods(file).xRead(systemFile(file), bytes, count, offset);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 size) {
  if (diskOf(file).strikes(false)) return SQLITE_IOERR_TRUNCATE;
  return systemMethods(file).xTruncate(systemFile(file), size);
}

int syncFile(sqlite3_file* file, int flags) {
  if (diskOf(file).strikes(false)) return SQLITE_IOERR_FSYNC;
  return systemMethods(file).xSync(systemFile(file), flags);
}

int lockFile(sqlite3_file* file, int lock) {
  if (diskOf(file).strikes(false)) return SQLITE_IOERR_LOCK;
  return systemMethods(file).xLock(systemFile(file), lock);
}

int mapShared(sqlite3_file* file, int page, int size, int extend, void volatile** memory) {
  if (diskOf(file).strikes(false)) return SQLITE_IOERR_SHMMAP;
  return systemMethods(file).xShmMap(systemFile(file), page, size, extend, memory);
}

int lockShared(sqlite3_file* file, int offset, int count, int flags) {
  const bool locks = (flags & SQLITE_SHM_LOCK) != 0;
  if (locks && diskOf(file).strikes(false)) return SQLITE_IOERR_SHMLOCK;
  return systemMethods(file).xShmLock(systemFile(file), offset, count, flags);
}

/// Calls the system's method of that name as it is.
#define ZENIVO_PASS_ON(method)                                    \
  [](sqlite3_file* file, auto... rest) {                          \
    return systemMethods(file).method(systemFile(file), rest...); \
  }

constexpr sqlite3_io_methods makeMethods() {
  sqlite3_io_methods methods{};
  methods.iVersion = 2;  // with shared memory, without mapped files
  methods.xClose = ZENIVO_PASS_ON(xClose);
  methods.xRead = readFile;
  methods.xWrite = writeFile;
  methods.xTruncate = truncateFile;
  methods.xSync = syncFile;
  methods.xFileSize = ZENIVO_PASS_ON(xFileSize);
  methods.xLock = lockFile;
  methods.xUnlock = ZENIVO_PASS_ON(xUnlock);
  methods.xCheckReservedLock = ZENIVO_PASS_ON(xCheckReservedLock);
  methods.xFileControl = ZENIVO_PASS_ON(xFileControl);
  methods.xSectorSize = ZENIVO_PASS_ON(xSectorSize);
  methods.xDeviceCharacteristics = ZENIVO_PASS_ON(xDeviceCharacteristics);
  methods.xShmMap = mapShared;
  methods.xShmLock = lockShared;
  methods.xShmBarrier = ZENIVO_PASS_ON(xShmBarrier);
  methods.xShmUnmap = ZENIVO_PASS_ON(xShmUnmap);
  return methods;
}

constexpr sqlite3_io_methods kMethods = makeMethods();

int openFile(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* given) {
  auto& disk = *static_cast<FaultyDisk*>(vfs->pAppData);
  file->pMethods = nullptr;
  if (disk.strikes(false)) return SQLITE_CANTOPEN;
  reinterpret_cast<File*>(file)->disk = &disk;
  const int code = disk.system().xOpen(&disk.system(), name, systemFile(file), flags, given);
  if (code == SQLITE_OK) file->pMethods = &kMethods;
  return code;
}

int deleteFile(sqlite3_vfs* vfs, const char* name, int syncsFolder) {
  auto& disk = *static_cast<FaultyDisk*>(vfs->pAppData);
  if (disk.strikes(false)) return SQLITE_IOERR_DELETE;
  return disk.system().xDelete(&disk.system(), name, syncsFolder);
}

}  // namespace

FaultyDisk::FaultyDisk() : system_(*sqlite3_vfs_find(nullptr)), vfs_(system_) {
  vfs_.zName = kName;
  vfs_.pNext = nullptr;
  vfs_.pAppData = this;
  vfs_.szOsFile = static_cast<int>(sizeof(File)) + system_.szOsFile;
  vfs_.xOpen = openFile;
  vfs_.xDelete = deleteFile;
  sqlite3_vfs_register(&vfs_, 0);
}

FaultyDisk::~FaultyDisk() {
  sqlite3_vfs_unregister(&vfs_);
}

void FaultyDisk::failAt(int place, Fault fault, bool lasting) {
  place_ = place;
  fault_ = fault;
  lasting_ = lasting;
  count_ = 0;
}

bool FaultyDisk::strikes(bool isWrite) {
  if (fault_ != Fault::ioError && !isWrite) return false;
  const int now = count_++;
  return lasting_ ? now >= place_ : now == place_;
}

}  // namespace zenivo::testing
