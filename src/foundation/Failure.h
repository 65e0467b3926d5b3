// How an operation that can fail hands its reason to the caller.

#pragma once

#include <string>
#include <utility>

namespace zenivo {

/// Stores the reason where the caller wants one and answers false, so that a
/// failing operation can end in `return fail(error, ...)`.
inline bool fail(std::string* error, std::string reason) {
  if (error != nullptr) *error = std::move(reason);
  return false;
}

}  // namespace zenivo
