// Members of many-to-many relationships, and places in ordered ones.

#pragma once

#include "store/file/SaveInProgress.h"

namespace zenivo {

/// Writes what a save says of members.
class MemberWriter {
 public:
  explicit MemberWriter(SaveInProgress& save) : save_(save) {}

  void writeMembers(const MemberChange& change);
  /// Places only have to grow from member to member, so those that do already stay.
  void writeOrder(const OrderChange& change);

 private:
  SaveInProgress& save_;
};

}  // namespace zenivo
