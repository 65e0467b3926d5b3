// References of a save to rows that others deleted meanwhile.

#pragma once

#include "store/file/SaveInProgress.h"

namespace zenivo {

/// Clears what a save has just written where it leads to rows that are gone.
class DanglingReferences {
 public:
  explicit DanglingReferences(SaveInProgress& save) : save_(save) {}

  void clearColumns();
  void clearMembers();

 private:
  void clearColumnsOf(const ObjectID& id, const std::vector<Value>& values);

  SaveInProgress& save_;
};

}  // namespace zenivo
