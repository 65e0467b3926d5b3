// The two contexts that a tool works with.

#pragma once

#include <memory>

#include "store/graph/ManagedObjectContext.h"

namespace zenivo {

/// A pair of contexts: the user half for reading and writing, the static half for
/// reading.  Either may be nullptr.
struct ZVManagedObjectContexts {
  std::shared_ptr<ManagedObjectContext> userContext;
  std::shared_ptr<ManagedObjectContext> staticContext;

  static ZVManagedObjectContexts managedObjectContextsWithUser(
      std::shared_ptr<ManagedObjectContext> user, std::shared_ptr<ManagedObjectContext> andStatic) {
    return {std::move(user), std::move(andStatic)};
  }

  /// A pair to edit in: a child of the user context whose changes reach it with a
  /// save, and win there, or are forgotten with the pair; and the same static
  /// context.  REQUIRES: a user context.
  ZVManagedObjectContexts scratchPair() const;
};

}  // namespace zenivo
