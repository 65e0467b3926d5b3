#include "foundation/UserFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace zenivo {
namespace {

std::filesystem::path folderInVariable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::filesystem::path homeFolder() {
  if (auto home = folderInVariable("HOME"); !home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr ? user->pw_dir : "/";
}

}  // namespace

std::filesystem::path userFolder() {
  if (auto home = folderInVariable("ZENIVO_HOME"); !home.empty()) return home;
  // Relative paths are ignored, as the rules of the XDG base directories ask.
  if (auto data = folderInVariable("XDG_DATA_HOME"); data.is_absolute()) return data / "zenivo";
  return homeFolder() / ".local/share/zenivo";
}

}  // namespace zenivo
