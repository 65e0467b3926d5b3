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

constexpr std::string_view kRandom = "XXXXXX";  // replaced by what no other file has

std::filesystem::path folderOf(const std::filesystem::path& file) {
  return file.has_parent_path() ? file.parent_path() : ".";
}

std::string temporaryName(const std::filesystem::path& file) {
  return fmt::format(".{}.{}", file.filename().string(), kRandom);
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

bool writeFileAtomically(const std::filesystem::path& path, std::string_view bytes, Error* error) {
  const std::filesystem::path file = symlinkTarget(path);
  const std::filesystem::path folder = folderOf(file);
  std::string temporary = (folder / temporaryName(file)).string();
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

std::filesystem::path symlinkTarget(std::filesystem::path file) {
  constexpr int kMostLinks = 40;  // as the system has it; a circle ends there
  std::error_code failure;
  for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(file, failure); ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(file, failure);
    if (failure) break;
    file = file.parent_path() / next;
  }
  return file;
}

void removeLeftovers(const std::filesystem::path& file) {
  const std::string begin = temporaryName(file);
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folderOf(file), ignored)) {
    const std::string name = entry.path().filename().string();
    const bool isLeftover = name.size() == begin.size() &&
                            name.starts_with(begin.substr(0, begin.size() - kRandom.size()));
    if (isLeftover) std::filesystem::remove(entry.path(), ignored);
  }
}

std::filesystem::path freeNameBeside(const std::filesystem::path& file, const char* suffix) {
  std::filesystem::path name = file.string() + suffix;
  std::error_code ignored;
  for (int i = 2; std::filesystem::exists(name, ignored); ++i) {
    name = fmt::format("{}{}{}", file.string(), suffix, i);
  }
  return name;
}

}  // namespace zenivo
