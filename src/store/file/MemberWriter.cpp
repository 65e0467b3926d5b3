#include "store/file/MemberWriter.h"

#include <unordered_map>

namespace zenivo {
namespace {

/// Where the places of an ordered relationship's members are kept.
struct OrderColumn {
  explicit OrderColumn(const RelationshipDescription& relationship) {
    if (relationship.storage == RelationshipStorage::inverseColumn) {
      const RelationshipDescription& column = *relationship.inverseRelationship;
      table = sqlName(tableName(*relationship.destinationEntity));
      owner = sqlName(columnName(column));
      member = "_id";
      order = sqlName(orderColumnName(column));
    } else {
      const JoinTable pairs(relationship);
      table = sqlName(pairs.name);
      owner = pairs.ownerColumn;
      member = pairs.memberColumn;
      order = sqlName(pairs.orderColumn);
    }
  }

  std::string table;
  std::string owner;
  std::string member;
  std::string order;
};

}  // namespace

void MemberWriter::writeMembers(const MemberChange& change) {
  const JoinTable pairs(*change.relationship);
  const RelationshipDescription& inverse = *change.relationship->inverseRelationship;
  const bool ownerHasEntity = isPolymorphic(*inverse.destinationEntity);
  const bool memberHasEntity = isPolymorphic(*change.relationship->destinationEntity);
  std::string names = pairs.ownerColumn + ", " + pairs.memberColumn;
  std::string marks = "?1, ?2";
  if (ownerHasEntity) names += ", " + sqlName(pairs.ownerColumn + ":entity");
  if (ownerHasEntity) marks += ", ?3";
  if (memberHasEntity) names += ", " + sqlName(pairs.memberEntityColumn);
  if (memberHasEntity) marks += ", ?4";
  const std::int64_t owner = save_.keyOf(change.owner);
  for (const ObjectID& member : change.removed) {
    const sqlite::Connection::Lease statement =
        save_.connection.prepare("DELETE FROM " + sqlName(pairs.name) + " WHERE " +
                                 pairs.ownerColumn + " = ?1 AND " + pairs.memberColumn + " = ?2");
    statement->bind(1, owner);
    statement->bind(2, save_.keyOf(member));
    statement->run();
  }
  for (const ObjectID& member : change.added) {
    const sqlite::Connection::Lease statement = save_.connection.prepare(
        "INSERT OR IGNORE INTO " + sqlName(pairs.name) + "(" + names + ") VALUES(" + marks + ")");
    statement->bind(1, owner);
    statement->bind(2, save_.keyOf(member));
    if (ownerHasEntity) statement->bind(3, save_.tables.numbers().numberOf(change.owner.entity()));
    if (memberHasEntity) statement->bind(4, save_.tables.numbers().numberOf(member.entity()));
    statement->run();
  }
}

/// Places only have to grow from member to member, so those that do already stay.
void MemberWriter::writeOrder(const OrderChange& change) {
  const OrderColumn columns(*change.relationship);
  const std::int64_t owner = save_.keyOf(change.owner);
  std::unordered_map<std::int64_t, std::int64_t> places;
  {
    const sqlite::Connection::Lease statement =
        save_.connection.prepare("SELECT " + columns.member + ", " + columns.order + " FROM " +
                                 columns.table + " WHERE " + columns.owner + " = ?1");
    statement->bind(1, owner);
    while (statement->step()) places[statement->integer(0)] = statement->integer(1);
  }
  std::int64_t last = 0;
  for (const ObjectID& member : change.members) {
    const auto place = places.find(save_.keyOf(member));
    if (place == places.end()) continue;  // others took it out
    if (place->second > last) {
      last = place->second;
      continue;
    }
    const sqlite::Connection::Lease statement = save_.connection.prepare(
        "UPDATE " + columns.table + " SET " + columns.order + " = ?3 WHERE " + columns.owner +
        " = ?1 AND " + columns.member + " = ?2");
    statement->bind(1, owner);
    statement->bind(2, place->first);
    statement->bind(3, ++last);
    statement->run();
  }
}

}  // namespace zenivo
