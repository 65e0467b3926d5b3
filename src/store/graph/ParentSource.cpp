#include "store/graph/ParentSource.h"

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {
namespace {

/// Hands rows that were copied on the parent's queue to the child on its own.
void deliver(std::vector<Row> rows, RowReceiver& receiver) {
  for (Row& row : rows) {
    if (receiver.found(row.id)) receiver.take(std::move(row));
  }
}

}  // namespace

ParentSource::ParentSource(std::shared_ptr<ManagedObjectContext> parent)
    : parent_(std::move(parent)) {
  parent_->performBlockAndWait([&] { parent_->graph().identities().remembersTemporaryIDs(); });
}

void ParentSource::fetch(const FetchRequest& request, RowReceiver& receiver) {
  std::vector<Row> rows;
  ObjectIDs ids;
  parent_->performBlockAndWait([&] {
    for (const ManagedObjectPtr& object : parent_->graph().fetching().fetch(request)) {
      ids.push_back(object->objectID());
    }
    if (request.includesPropertyValues) rows = parent_->graph().children().rowsForChild(ids);
  });
  if (request.includesPropertyValues) return deliver(std::move(rows), receiver);
  for (const ObjectID& id : ids) receiver.found(id);
}

std::size_t ParentSource::count(const FetchRequest& request) {
  std::size_t count = 0;
  parent_->performBlockAndWait([&] { count = parent_->graph().fetching().count(request); });
  return count;
}

void ParentSource::rows(const ObjectIDs& ids, RowReceiver& receiver) {
  std::vector<Row> rows;
  parent_->performBlockAndWait([&] { rows = parent_->graph().children().rowsForChild(ids); });
  deliver(std::move(rows), receiver);
}

std::vector<ObjectIDs> ParentSource::destinations(const ObjectIDs& owners,
                                                  const RelationshipDescription& relationship) {
  std::vector<ObjectIDs> members;
  parent_->performBlockAndWait([&] {
    for (const ObjectID& owner : owners) {
      members.push_back(parent_->graph().children().membersForChild(owner, relationship));
    }
  });
  return members;
}

SaveOutcome ParentSource::save(const SaveRequest& request) {
  SaveOutcome outcome;
  parent_->performBlockAndWait([&] { outcome = parent_->graph().children().takeSave(request); });
  return outcome;
}

ObjectIDs ParentSource::obtainPermanentIDs(const ObjectIDs& temporary) {
  ObjectIDs permanent;
  parent_->performBlockAndWait(
      [&] { permanent = parent_->graph().identities().permanentIDsForChild(temporary); });
  return permanent;
}

std::unordered_map<ObjectID, ObjectID> ParentSource::permanentIDsFor(const ObjectIDs& temporary) {
  std::unordered_map<ObjectID, ObjectID> permanent;
  parent_->performBlockAndWait([&] {
    parent_->graph().identities().adoptPermanentIDs();
    for (const ObjectID& id : temporary) {
      const ObjectID now = parent_->graph().identities().ownID(id);
      if (now != id) permanent[id] = now;
    }
  });
  return permanent;
}

}  // namespace zenivo
