// A file read by mapping it into memory.

#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>

namespace zenivo {

/// A file of tables, of which only the parts that are looked at are read from disk.
/// It must not change meanwhile.
class MappedFile {
 public:
  /// Throws std::runtime_error, naming the file, when it cannot be read or does not
  /// begin with `magic`.
  MappedFile(const std::filesystem::path& file, std::string_view magic);
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  ~MappedFile();

  /// The next `count` objects, in the order in which they stand after the magic; each
  /// table begins at a multiple of four bytes.  Throws std::runtime_error when the file
  /// ends before.
  template <typename T>
  std::span<const T> next(std::size_t count) {
    static_assert(alignof(T) <= 4);
    return {reinterpret_cast<const T*>(nextBytes(count, sizeof(T))), count};
  }

 private:
  const std::byte* nextBytes(std::size_t count, std::size_t size);
  [[noreturn]] void fail() const;

  std::string name_;
  const std::byte* begin_ = nullptr;
  std::size_t size_ = 0;
  std::size_t at_ = 0;
};

}  // namespace zenivo
