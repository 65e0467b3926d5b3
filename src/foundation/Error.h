// What went wrong, as a value that can be handed on, logged and shown.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zenivo {

/// A failure: who reports it, which one it is there, and words for the user.  Where one
/// failure is like another to the caller, domain and code stay empty.
struct Error {
  std::string domain = {};                           ///< whose codes these are
  std::int64_t code = 0;                             ///< meaning depends on the domain
  std::string description = {};                      ///< one sentence, not localised
  std::map<std::string, std::string> userInfo = {};  ///< details by name, for the log
  std::vector<Error> underlying = {};                ///< the failures that this one sums up
};

/// Stores the reason where the caller wants one and answers false, so that a failing
/// operation can end in `return fail(error, {.description = …})`.
inline bool fail(Error* error, Error reason) {
  if (error != nullptr) *error = std::move(reason);
  return false;
}

}  // namespace zenivo
