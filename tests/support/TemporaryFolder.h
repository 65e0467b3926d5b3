// A folder for the files of one test.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace zenivo {

/// An empty folder, removed with all it holds in the end; in memory where there is a
/// disk of it, since some tests wait for thousands of saves.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::filesystem::path memory = "/dev/shm";
    const bool inMemory = std::filesystem::is_directory(memory);
    std::string name =
        (inMemory ? memory : std::filesystem::temp_directory_path()) / "zenivo-XXXXXX";
    path_ = ::mkdtemp(name.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace zenivo
