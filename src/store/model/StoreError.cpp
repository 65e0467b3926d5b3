#include "store/model/StoreError.h"

#include <filesystem>

namespace zenivo {
Error makeStoreError(StoreErrorCode code, std::string description) {
  return {.domain = std::string(kStoreErrorDomain),
          .code = static_cast<std::int64_t>(code),
          .description = std::move(description)};
}

StoreFailure newerStore() {
  return {StoreErrorCode::incompatibleModel,
          "a newer Zenivo made the store; this one leaves it as it is"};
}

Error errorOfCurrentException() {
  try {
    throw;
  } catch (const StoreFailure& failure) {
    return failure.error();
  } catch (const std::invalid_argument& failure) {
    return makeStoreError(StoreErrorCode::invalidRequest, failure.what());
  } catch (const std::filesystem::filesystem_error& failure) {
    return makeStoreError(StoreErrorCode::failedAccess, failure.what());
  }
}

}  // namespace zenivo
