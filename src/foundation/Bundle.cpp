#include "foundation/Bundle.h"

#include <cstdlib>
#include <system_error>

namespace zenivo {
namespace {

std::filesystem::path besideTheProgram() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path() / "../share/zenivo";
}

}  // namespace

std::filesystem::path resourcePath(std::string_view name) {
  const char* variable = std::getenv("ZENIVO_RESOURCES");
  const bool isSet = variable != nullptr && *variable != '\0';
  if (isSet) return std::filesystem::path(variable) / name;
  const std::filesystem::path folders[] = {besideTheProgram(), ZENIVO_GENERATED_RESOURCE_DIR,
                                           ZENIVO_RESOURCE_DIR, ZENIVO_INSTALLED_RESOURCE_DIR};
  for (const auto& folder : folders) {
    std::error_code ignored;
    if (std::filesystem::exists(folder / name, ignored)) return folder / name;
  }
  return std::filesystem::path(ZENIVO_RESOURCE_DIR) / name;
}

}  // namespace zenivo
