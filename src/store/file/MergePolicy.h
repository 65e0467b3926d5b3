// What a save does about changes that others saved meanwhile.

#pragma once

namespace zenivo {

/// A save finds a conflict when a row that it changes or deletes is no longer as
/// the context read it.
enum class MergePolicy {
  /// The save fails with StoreErrorCode::conflict and nothing is written.
  error,
  /// Property by property: what others changed stays, the rest is taken from the
  /// context.  An object that others deleted stays deleted.
  mergeByPropertyStoreTrump,
  /// Property by property: what the context changed is taken, the rest stays.  An
  /// object that others deleted comes back.
  mergeByPropertyObjectTrump,
};

}  // namespace zenivo
