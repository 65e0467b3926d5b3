// Predicates asked about objects in memory.

#pragma once

#include <cstddef>

#include "store/graph/ManagedObject.h"
#include "store/predicates/BoundPredicate.h"

namespace zenivo {

/// Whether the object meets the condition with the values that its context has.
bool meets(const BoundPredicate& predicate, const ManagedObject& object);

/// The value at the end of a path over to-one relationships; empty where one of them is.
Value valueAtKeyPath(const KeyPath& path, const ManagedObject& object);

}  // namespace zenivo
