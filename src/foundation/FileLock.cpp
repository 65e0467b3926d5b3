#include "foundation/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>

#include "foundation/Failure.h"

namespace zenivo {

std::optional<FileDescriptor> lockFileExclusively(const std::filesystem::path& file,
                                                  std::string* error) {
  FileDescriptor opened(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
  bool locked = opened.isOpen() && ::flock(opened.get(), LOCK_EX) == 0;
  while (!locked && errno == EINTR) locked = ::flock(opened.get(), LOCK_EX) == 0;
  if (locked) return opened;
  fail(error, file.string() + ": " + std::generic_category().message(errno));
  return std::nullopt;
}

}  // namespace zenivo
