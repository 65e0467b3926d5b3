#include "foundation/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace zenivo {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr mode_t kPrivate = 0600;

void takeModeOf(const std::filesystem::path& guarded, int lockFile) {
  struct stat theirs {};
  struct stat own {};
  if (::stat(guarded.c_str(), &theirs) != 0 || ::fstat(lockFile, &own) != 0) return;
  const mode_t mode = (theirs.st_mode & 0666) | kPrivate;
  const bool mayChange = own.st_uid == ::geteuid();
  if (mayChange && (own.st_mode & 0777) != mode) ::fchmod(lockFile, mode);
}

}  // namespace

std::optional<FileLock> FileLock::open(const std::filesystem::path& guarded, const char* suffix,
                                       std::error_code& error) {
  const std::filesystem::path file = std::filesystem::path(guarded).concat(suffix);
  FileDescriptor opened(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kPrivate));
  if (!opened.isOpen()) {
    error.assign(errno, std::generic_category());
    return std::nullopt;
  }
  takeModeOf(guarded, opened.get());
  return FileLock(std::move(opened));
}

bool FileLock::acquire(std::chrono::milliseconds patience) const {
  // Asked again and again rather than waited for: a process that was stopped
  // while it held the lock must not stop the others for ever.
  constexpr microseconds kLongestNap{5'000};
  const auto deadline = steady_clock::now() + patience;
  for (microseconds nap{50};; nap = std::min(nap * 2, kLongestNap)) {
    if (::flock(file_.get(), LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    if (steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(nap);
  }
}

void FileLock::release() const {
  ::flock(file_.get(), LOCK_UN);
}

}  // namespace zenivo
