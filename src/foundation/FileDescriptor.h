// An open file of the operating system.

#pragma once

#include <unistd.h>

#include <utility>

namespace zenivo {

/// Owns a file descriptor and closes it in the end.  Negative is "not open".
class FileDescriptor {
 public:
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) close();
    descriptor_ = std::exchange(other.descriptor_, descriptor_);
    return *this;
  }
  ~FileDescriptor() { close(); }

  int get() const { return descriptor_; }
  bool isOpen() const { return descriptor_ >= 0; }

  /// Closes early; false when the system reports that written data was lost.
  bool close() {
    const int closing = std::exchange(descriptor_, -1);
    return closing < 0 || ::close(closing) == 0;
  }

 private:
  int descriptor_;
};

}  // namespace zenivo
