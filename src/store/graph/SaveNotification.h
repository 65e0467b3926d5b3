// What a save tells the rest of the program.

#pragma once

#include <string_view>

#include "store/graph/ManagedObject.h"

namespace zenivo {

/// Posted to the default center with the context as object, on the thread that saves:
/// before anything is validated, and after everything is written.  The user info is a
/// SaveNotification.
inline constexpr std::string_view kManagedObjectContextWillSaveNotification =
    "ZenivoManagedObjectContextWillSaveNotification";
inline constexpr std::string_view kManagedObjectContextDidSaveNotification =
    "ZenivoManagedObjectContextDidSaveNotification";

/// The objects of a save.  The objects belong to the queue of the context that
/// saved; the identities may be read anywhere.
struct SaveNotification {
  ManagedObjects insertedObjects = {};
  ManagedObjects updatedObjects = {};  ///< those included of which only a relationship changed
  ManagedObjects deletedObjects = {};
  ObjectIDs insertedObjectIDs = {};
  ObjectIDs updatedObjectIDs = {};
  ObjectIDs deletedObjectIDs = {};
};

}  // namespace zenivo
