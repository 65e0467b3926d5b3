#include "foundation/MappedFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <cstring>
#include <stdexcept>

#include "foundation/FileDescriptor.h"

namespace zenivo {

MappedFile::MappedFile(const std::filesystem::path& file, std::string_view magic)
    : name_(file.string()), at_(magic.size()) {
  const FileDescriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat status {};
  if (!descriptor.isOpen() || ::fstat(descriptor.get(), &status) != 0) fail();
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size < magic.size()) fail();
  void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor.get(), 0);
  if (mapped == MAP_FAILED) fail();
  if (std::memcmp(mapped, magic.data(), magic.size()) != 0) {
    ::munmap(mapped, size);
    fail();
  }
  begin_ = static_cast<const std::byte*>(mapped);
  size_ = size;
}

MappedFile::~MappedFile() {
  ::munmap(const_cast<std::byte*>(begin_), size_);
}

const std::byte* MappedFile::nextBytes(std::size_t count, std::size_t size) {
  const std::size_t start = (at_ + 3) / 4 * 4;
  if (start > size_ || count > (size_ - start) / size) fail();
  at_ = start + count * size;
  return begin_ + start;
}

void MappedFile::fail() const {
  throw std::runtime_error(
      fmt::format("the file {} that comes with Zenivo is missing or damaged", name_));
}

}  // namespace zenivo
