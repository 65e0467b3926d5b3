#include "store/model/ModelText.h"

#include <algorithm>
#include <sstream>

namespace zenivo {
namespace {

const char* typeText(AttributeType type) {
  switch (type) {
    case AttributeType::integer16:
      return "integer16";
    case AttributeType::integer32:
      return "integer32";
    case AttributeType::integer64:
      return "integer64";
    case AttributeType::doubleNumber:
      return "double";
    case AttributeType::floatNumber:
      return "float";
    case AttributeType::string:
      return "string";
    case AttributeType::boolean:
      return "boolean";
    case AttributeType::date:
      return "date";
    case AttributeType::binary:
      return "binary";
    case AttributeType::transformable:
      return "transformable";
  }
  return "";
}

const char* kindText(RelationshipKind kind) {
  switch (kind) {
    case RelationshipKind::toOne:
      return "to-one";
    case RelationshipKind::toMany:
      return "to-many";
    case RelationshipKind::orderedToMany:
      return "ordered-to-many";
  }
  return "";
}

PropertyRecord recordOfProperty(const PropertyDescription& property) {
  PropertyRecord record{.name = property.name};
  if (const auto* attribute = asAttribute(&property)) {
    record.type = typeText(attribute->type);
    if (attribute->isIndexed) record.remarks.emplace_back("indexed");
  }
  if (const auto* relationship = asRelationship(&property)) {
    record.type = kindText(relationship->kind);
    record.destination = relationship->destinationEntity->name();
    record.inverse = relationship->inverseRelationship->name;
    if (relationship->deleteRule == DeleteRule::cascade) record.remarks.emplace_back("cascade");
  }
  if (!property.isOptional) record.remarks.emplace_back("required");
  if (property.isTransient) record.remarks.emplace_back("transient");
  return record;
}

std::vector<std::string> wordsOf(const std::string& line) {
  std::istringstream stream(line);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::optional<PropertyRecord> parseProperty(const std::vector<std::string>& words) {
  const bool isRelationship = words[0] == "relationship";
  const std::size_t fixed = isRelationship ? 5 : 3;
  if ((!isRelationship && words[0] != "attribute") || words.size() < fixed) return std::nullopt;
  PropertyRecord record{.name = words[1], .type = words[2]};
  if (isRelationship) {
    record.destination = words[3];
    record.inverse = words[4];
  }
  record.remarks.assign(words.begin() + static_cast<std::ptrdiff_t>(fixed), words.end());
  return record;
}

}  // namespace

const PropertyRecord* EntityRecord::propertyNamed(std::string_view wanted) const {
  const auto found = std::ranges::find(properties, wanted, &PropertyRecord::name);
  return found != properties.end() ? &*found : nullptr;
}

EntityRecord recordOfEntity(const EntityDescription& entity) {
  EntityRecord record{.name = entity.name(), .isAbstract = entity.isAbstract()};
  if (entity.superentity() != nullptr) record.superentity = entity.superentity()->name();
  for (const PropertyDescription* property : entity.properties()) {
    if (property->entity == &entity) record.properties.push_back(recordOfProperty(*property));
  }
  std::ranges::sort(record.properties, {}, &PropertyRecord::name);
  return record;
}

std::string formatEntityRecord(const EntityRecord& record) {
  std::string text = "entity " + record.name;
  if (!record.superentity.empty()) text += " below " + record.superentity;
  if (record.isAbstract) text += " abstract";
  text += '\n';
  for (const PropertyRecord& property : record.properties) {
    const bool isRelationship = !property.destination.empty();
    text += (isRelationship ? "relationship " : "attribute ") + property.name + ' ' + property.type;
    if (isRelationship) text += ' ' + property.destination + ' ' + property.inverse;
    for (const std::string& remark : property.remarks) text += ' ' + remark;
    text += '\n';
  }
  return text;
}

std::optional<EntityRecord> parseEntityRecord(std::string_view text) {
  std::istringstream lines{std::string(text)};
  std::string line;
  std::getline(lines, line);
  std::vector<std::string> words = wordsOf(line);
  if (words.size() < 2 || words[0] != "entity") return std::nullopt;
  EntityRecord record{.name = words[1]};
  if (words.back() == "abstract") {
    record.isAbstract = true;
    words.pop_back();
  }
  if (words.size() == 4 && words[2] == "below") {
    record.superentity = words[3];
  } else if (words.size() != 2) {
    return std::nullopt;
  }
  while (std::getline(lines, line)) {
    words = wordsOf(line);
    if (words.empty()) return std::nullopt;
    auto property = parseProperty(words);
    if (!property) return std::nullopt;
    record.properties.push_back(std::move(*property));
  }
  return record;
}

}  // namespace zenivo
