#include "foundation/AtomicFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "foundation/Error.h"
#include "foundation/FileDescriptor.h"

namespace zenivo {
namespace {

std::string reason(const std::filesystem::path& file) {
  return fmt::format("{}: {}", file.string(), std::generic_category().message(errno));
}

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// A renamed file is safe only when its folder has reached the disk too.
bool syncFolder(const std::filesystem::path& folder) {
  const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return opened.isOpen() && ::fsync(opened.get()) == 0;
}

}  // namespace

std::optional<std::string> readFile(const std::filesystem::path& file, std::size_t limit,
                                    Error* error) {
  const auto failed = [error](std::string why) {
    fail(error, {.description = std::move(why)});
    return std::nullopt;
  };
  const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!opened.isOpen() || ::fstat(opened.get(), &status) != 0) return failed(reason(file));
  if (!S_ISREG(status.st_mode)) return failed(file.string() + ": not a regular file");

  std::string bytes;
  std::array<char, 65536> block;
  for (;;) {
    const ssize_t count = ::read(opened.get(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return failed(reason(file));
    if (count == 0) return bytes;
    bytes.append(block.data(), static_cast<std::size_t>(count));
    if (bytes.size() > limit) {
      return failed(fmt::format("{}: longer than {} bytes", file.string(), limit));
    }
  }
}

bool writeFileAtomically(const std::filesystem::path& file, std::string_view bytes, Error* error) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  std::string temporary = (folder / ("." + file.filename().string() + ".XXXXXX")).string();
  FileDescriptor opened(::mkostemp(temporary.data(), O_CLOEXEC));
  if (!opened.isOpen()) return fail(error, {.description = reason(file)});

  struct stat old {};
  const bool exists = ::stat(file.c_str(), &old) == 0;
  const bool replaced = (!exists || ::fchmod(opened.get(), old.st_mode & 07777) == 0) &&
                        writeAll(opened.get(), bytes) && ::fsync(opened.get()) == 0 &&
                        opened.close() && ::rename(temporary.c_str(), file.c_str()) == 0;
  if (!replaced) {
    const std::string why = reason(file);
    ::unlink(temporary.c_str());
    return fail(error, {.description = why});
  }
  return syncFolder(folder) || fail(error, {.description = reason(folder)});
}

}  // namespace zenivo
