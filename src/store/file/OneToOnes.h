// Partners in one-to-one relationships, while rows are written.

#pragma once

#include "store/file/SaveInProgress.h"

namespace zenivo {

/// No two rows may hold one partner at any moment of a save.
class OneToOnes {
 public:
  explicit OneToOnes(SaveInProgress& save) : save_(save) {}

  /// Lets go of all partners that the request exchanges or deletes, before any is taken.
  void free();
  /// A partner leaves the row that others gave it to.
  void take(const ObjectID& id, const PropertyDescription& property, const Value& value);

 private:
  SaveInProgress& save_;
};

}  // namespace zenivo
