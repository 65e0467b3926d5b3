#include "store/sqlite/StoreLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

namespace zenivo::sqlite {

using std::chrono::microseconds;
using std::chrono::steady_clock;

StoreLock::StoreLock(const std::filesystem::path& file, std::error_code& error)
    : descriptor_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (descriptor_ < 0) error.assign(errno, std::generic_category());
}

StoreLock::~StoreLock() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

bool StoreLock::acquire(std::chrono::milliseconds patience) {
  // Asked again and again rather than waited for: a process that was stopped
  // while it held the lock must not stop the others for ever.
  constexpr microseconds kLongestNap{5'000};
  const auto deadline = steady_clock::now() + patience;
  for (microseconds nap{50};; nap = std::min(nap * 2, kLongestNap)) {
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0) return true;
    if (errno != EWOULDBLOCK && errno != EINTR) return false;
    if (steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(nap);
  }
}

void StoreLock::release() {
  ::flock(descriptor_, LOCK_UN);
}

}  // namespace zenivo::sqlite
