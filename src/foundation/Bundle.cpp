#include "foundation/Bundle.h"

#include <cstdlib>

namespace zenivo {

std::filesystem::path resourcePath(std::string_view name) {
  const char* variable = std::getenv("ZENIVO_RESOURCES");
  const bool isSet = variable != nullptr && *variable != '\0';
  return std::filesystem::path(isSet ? variable : ZENIVO_RESOURCE_DIR) / name;
}

}  // namespace zenivo
