// The user's settings, for one command.

#pragma once

#include <optional>
#include <string_view>

#include "foundation/PropertyList.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// A copy in memory of the settings in the user's folder, over the program's first values,
/// which also stand for what is there but out of its range.
/// Whoever works with it may store and synchronise as he likes: nothing reaches the folder
/// until save().
class UserSettings {
 public:
  /// Of those settings, which must outlive the copy.  Throws std::runtime_error when the
  /// first values cannot be read.
  explicit UserSettings(UserDefaults& user);

  UserDefaults& copy() { return copy_; }
  const UserDefaults& copy() const { return copy_; }

  const PropertyList::Dictionary& firstValues() const { return first_; }
  std::optional<PropertyList> firstValue(std::string_view key) const;

  /// Keeps what differs in the copy, and only that, in the user's folder; what was brought
  /// back to its first value is forgotten there.  Throws std::runtime_error on failure, and
  /// then the folder is as it was.
  void save();

 private:
  UserDefaults& user_;
  PropertyList::Dictionary first_;
  UserDefaults copy_;
};

}  // namespace zenivo
