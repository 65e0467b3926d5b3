#include "store/graph/FetchedObjects.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"
#include "store/predicates/FetchRequest.h"

namespace zenivo {

struct FetchedObjects::Batches {
  std::weak_ptr<ManagedObjectContext> context;
  FetchRequest request;
  ObjectIDs ids;
  std::map<std::size_t, ManagedObjectPtr> unsaved;  // their identities will change
  std::size_t first = 0;                            // of the batch in memory
  ManagedObjects batch;
  ManagedObjects companions;

  void bring(std::size_t index) {
    const std::shared_ptr<ManagedObjectContext> alive = context.lock();
    if (alive == nullptr) throw std::out_of_range("the context of the fetch is gone");
    alive->assertOnQueue();
    const std::size_t size = request.fetchBatchSize;
    first = index - index % size;
    ObjectIDs wanted;
    for (std::size_t i = first; i < std::min(first + size, ids.size()); ++i) {
      const auto kept = unsaved.find(i);
      wanted.push_back(kept != unsaved.end() ? kept->second->objectID() : ids[i]);
    }
    batch = alive->graph_->realised(wanted);
    companions = alive->graph_->fetching().prefetch(batch, request);
  }
};

FetchedObjects::FetchedObjects(ManagedObjects objects, ManagedObjects companions)
    : size_(objects.size()), objects_(std::move(objects)), companions_(std::move(companions)) {}

FetchedObjects::FetchedObjects(std::weak_ptr<ManagedObjectContext> context,
                               const FetchRequest& request, ObjectIDs ids)
    : size_(ids.size()), batches_(std::make_shared<Batches>()) {
  batches_->request = request;
  const std::shared_ptr<ManagedObjectContext> alive = context.lock();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (!ids[i].isTemporaryID()) continue;
    if (ManagedObjectPtr object = alive->objectRegisteredForID(ids[i])) {
      batches_->unsaved[i] = std::move(object);
    }
  }
  batches_->ids = std::move(ids);
  batches_->context = std::move(context);
}

ManagedObjectPtr FetchedObjects::at(std::size_t index) const {
  if (index >= size_) throw std::out_of_range("no result at that place");
  if (batches_ == nullptr) return objects_[index];
  const Batches& now = *batches_;
  const bool isHere = index >= now.first && index - now.first < now.batch.size();
  if (!isHere) batches_->bring(index);
  return batches_->batch[index - batches_->first];
}

}  // namespace zenivo
