// What tells one version of a model from another.

#pragma once

#include <map>
#include <string>

#include "store/model/ModelText.h"

namespace zenivo {

/// 32 bytes that change with what other programs must know of an entity to read its
/// objects: the names and types of what it declares, what may be empty, and where
/// relationships lead.  Indices, delete rules and transient attributes change nothing.
Data versionHashOf(const EntityRecord& entity);

/// 32 bytes that change with anything of the record: the form in which a store keeps it.
Data storedHashOf(const EntityRecord& entity);

/// One hash for all entities of a model, by their names: 64 hexadecimal digits.
std::string modelHashOf(const std::map<std::string, Data>& entityHashes);

}  // namespace zenivo
