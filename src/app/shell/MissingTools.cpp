#include "app/shell/MissingTools.h"

#include "foundation/LocalizedString.h"

namespace zenivo {

void MissingImport::importFile(const std::filesystem::path& /*file*/,
                               ManagedObjectContext& /*userContext*/,
                               std::function<void(const Result&)> completion) {
  Error error;
  error.domain = "ZenivoShellErrorDomain";
  error.code = 1;
  error.description = localizedString("tool_missing_import", "Common");
  completion({0, error});
}

}  // namespace zenivo
