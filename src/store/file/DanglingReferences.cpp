#include "store/file/DanglingReferences.h"

namespace zenivo {
void DanglingReferences::clearColumns() {
  for (const InsertedRow& row : save_.request.inserted) {
    clearColumnsOf(save_.permanent(row.id), *row.values);
  }
  for (const UpdatedRow& row : save_.request.updated) clearColumnsOf(row.id, *row.values);
}

void DanglingReferences::clearColumnsOf(const ObjectID& id, const std::vector<Value>& values) {
  for (const RelationshipDescription* relationship : id.entity().relationships()) {
    const Value& value = values[relationship->index];
    if (value.isNull() || save_.exists(value.objectID())) continue;
    const std::string column = sqlName(columnName(*relationship));
    const sqlite::Connection::Lease statement =
        save_.connection.prepare("UPDATE " + sqlName(tableName(id.entity())) + " SET " + column +
                                 " = NULL WHERE _id = ?1 AND " + column + " = ?2");
    statement->bind(1, id.key());
    statement->bind(2, save_.keyOf(value.objectID()));
    statement->run();
    save_.settled.push_back(id);
  }
}

void DanglingReferences::clearMembers() {
  for (const MemberChange& change : save_.request.members) {
    const JoinTable pairs(*change.relationship);
    for (const ObjectID& member : change.added) {
      if (save_.exists(change.owner) && save_.exists(member)) continue;
      const sqlite::Connection::Lease statement =
          save_.connection.prepare("DELETE FROM " + sqlName(pairs.name) + " WHERE " +
                                   pairs.ownerColumn + " = ?1 AND " + pairs.memberColumn + " = ?2");
      statement->bind(1, save_.keyOf(change.owner));
      statement->bind(2, save_.keyOf(member));
      statement->run();
      save_.settled.push_back(save_.permanent(change.owner));
      save_.settled.push_back(save_.permanent(member));
    }
  }
}

}  // namespace zenivo
