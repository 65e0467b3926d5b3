// The results of a fetch.

#pragma once

#include <cstddef>
#include <iterator>
#include <memory>

#include "store/graph/ManagedObject.h"

namespace zenivo {

struct FetchRequest;

/// The objects of a fetch in their order.  With a batch size it holds identities and
/// fetches the objects a batch at a time as they are asked for, keeping only the
/// last ones, so that a walk over many takes little memory.  Holds what was fetched
/// along with them.  Belongs to the queue of its context.
class FetchedObjects {
 public:
  FetchedObjects() = default;
  FetchedObjects(ManagedObjects objects, ManagedObjects companions);
  /// Results in batches.  Unsaved ones are held as they are.
  FetchedObjects(std::weak_ptr<ManagedObjectContext> context, const FetchRequest& request,
                 ObjectIDs ids);

  std::size_t size() const { return size_; }
  bool empty() const { return size_ == 0; }

  /// The object at a place.  Throws std::out_of_range beyond the end.  What was deleted
  /// meanwhile comes as a deleted object.
  ManagedObjectPtr at(std::size_t index) const;
  ManagedObjectPtr operator[](std::size_t index) const { return at(index); }
  ManagedObjectPtr front() const { return at(0); }
  /// The first object; nullptr when there is none.
  ManagedObjectPtr firstObject() const { return empty() ? nullptr : at(0); }

  class Iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = ManagedObjectPtr;
    using difference_type = std::ptrdiff_t;
    using pointer = const ManagedObjectPtr*;
    using reference = ManagedObjectPtr;

    Iterator() = default;
    Iterator(const FetchedObjects* results, std::size_t index) : results_(results), index_(index) {}
    ManagedObjectPtr operator*() const { return results_->at(index_); }
    Iterator& operator++() {
      ++index_;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++index_;
      return before;
    }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.index_ == b.index_; }

   private:
    const FetchedObjects* results_ = nullptr;
    std::size_t index_ = 0;
  };

  Iterator begin() const { return {this, 0}; }
  Iterator end() const { return {this, size_}; }

 private:
  struct Batches;

  std::size_t size_ = 0;
  ManagedObjects objects_;  // without batches
  ManagedObjects companions_;
  std::shared_ptr<Batches> batches_;  // with them; shared by copies
};

/// The results as objects of a class derived from ManagedObject.  What was fetched
/// along is held by the results alone.
template <class T, class Objects>
std::vector<std::shared_ptr<T>> objectsOfClass(const Objects& objects) {
  std::vector<std::shared_ptr<T>> typed;
  typed.reserve(objects.size());
  for (const ManagedObjectPtr& object : objects) {
    typed.push_back(std::static_pointer_cast<T>(object));
  }
  return typed;
}

}  // namespace zenivo
