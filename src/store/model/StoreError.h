// The failures that a store reports.

#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "foundation/Error.h"

namespace zenivo {

inline constexpr std::string_view kStoreErrorDomain = "ZenivoStoreErrorDomain";

/// Codes of kStoreErrorDomain.
enum class StoreErrorCode {
  missingFile = 4,            ///< a store to be read only is not there, or no folder for a new one
  damagedFile = 259,          ///< the file is a store but parts of it are missing or wrong
  notAStore = 260,            ///< the file is something else
  notWritable = 513,          ///< file or folder may not be written
  diskFull = 640,             ///< no space left
  validationMultiple = 1560,  ///< several of the following; see `underlying`
  missingMandatoryProperty = 1570,
  numberOutOfRange = 1610,
  conflict = 133020,  ///< another save changed the same object meanwhile
  incompatibleModel =
      134100,  ///< the store was made with another model; no migration was asked for
  cannotInferMigration =
      134190,               ///< the difference of the models is no addition, removal or easing
  noStore = 134060,         ///< the coordinator has no store
  busy = 134081,            ///< another process keeps the store locked
  invalidRequest = 134082,  ///< an unknown entity or key, or values that cannot be compared
  failedAccess = 134083,    ///< reading or writing failed otherwise
};

/// An error of the store's domain.  The description is a sentence for the user; what else
/// the log should know stands in userInfo.
Error makeStoreError(StoreErrorCode code, std::string description);

/// How a failure travels inside the store layer; context and coordinator turn it
/// into an Error for their callers.
class StoreFailure : public std::runtime_error {
 public:
  explicit StoreFailure(Error reason)
      : std::runtime_error(reason.description), error_(std::move(reason)) {}
  StoreFailure(StoreErrorCode code, std::string description)
      : StoreFailure(makeStoreError(code, std::move(description))) {}

  const Error& error() const { return error_; }

 private:
  Error error_;
};

/// The store holds what this program does not know.
StoreFailure newerStore();

/// The exception being handled, as an error: a StoreFailure's own, an invalid argument
/// as an invalid request.  Call it in a handler only; anything else is thrown on.
Error errorOfCurrentException();

}  // namespace zenivo
