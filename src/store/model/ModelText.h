// The stored form of an entity as text: what version hashes are taken of and what
// a store keeps to know later how its rows were made.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/model/EntityDescription.h"

namespace zenivo {

/// A property as a store remembers it.
struct PropertyRecord {
  std::string name = {};
  std::string type = {};         ///< "integer16", …, "to-one", "to-many", "ordered-to-many"
  std::string destination = {};  ///< entity and inverse, for a relationship
  std::string inverse = {};
  std::vector<std::string> remarks = {};  ///< "required", "indexed", "cascade", "transient"

  friend bool operator==(const PropertyRecord&, const PropertyRecord&) = default;
};

/// An entity as a store remembers it: the properties that it declares itself.
struct EntityRecord {
  std::string name = {};
  std::string superentity = {};
  bool isAbstract = false;
  std::vector<PropertyRecord> properties = {};  ///< by name

  const PropertyRecord* propertyNamed(std::string_view name) const;
};

EntityRecord recordOfEntity(const EntityDescription& entity);

/// One line for the entity and one for each property; equal records give equal text.
std::string formatEntityRecord(const EntityRecord& record);

/// Reads the text back; nullopt for anything that formatEntityRecord does not write.
std::optional<EntityRecord> parseEntityRecord(std::string_view text);

}  // namespace zenivo
