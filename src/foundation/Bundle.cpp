#include "foundation/Bundle.h"

#include <cstdlib>
#include <system_error>

namespace zenivo {

std::filesystem::path resourcePath(std::string_view name) {
  const char* variable = std::getenv("ZENIVO_RESOURCES");
  const bool isSet = variable != nullptr && *variable != '\0';
  if (isSet) return std::filesystem::path(variable) / name;
  const auto generated = std::filesystem::path(ZENIVO_GENERATED_RESOURCE_DIR) / name;
  std::error_code ignored;
  return std::filesystem::exists(generated, ignored)
             ? generated
             : std::filesystem::path(ZENIVO_RESOURCE_DIR) / name;
}

}  // namespace zenivo
