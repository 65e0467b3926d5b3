// Rows on their way to the objects of a context.

#pragma once

#include "store/file/ObjectSource.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

/// Brings rows to the objects that wait for them, and awakens those afterwards.
class ObjectCollector : public RowReceiver {
 public:
  explicit ObjectCollector(ObjectGraph& graph) : graph_(graph) {}

  bool found(const ObjectID& id) override {
    at_ = graph_.objectFor(id);
    objects.push_back(at_);
    return at_->isFault();
  }

  void take(Row&& row) override {
    if (!at_->isFault()) return;
    graph_.adopt(*at_, std::move(row));
    awoken_.push_back(at_);
  }

  void awaken() {
    for (const ManagedObjectPtr& object : awoken_) {
      graph_.relationships().keepGivenPartners(*object);
    }
    for (const ManagedObjectPtr& object : awoken_) object->awakeFromFetch();
  }

  ManagedObjects objects;

 private:
  ObjectGraph& graph_;
  ManagedObjectPtr at_;
  ManagedObjects awoken_;
};

}  // namespace zenivo
