#include "store/graph/ContextQueue.h"

#include <cstdio>
#include <cstdlib>
#include <list>
#include <utility>

#include "foundation/MainQueue.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Unwaited.h"

namespace zenivo {
namespace {

/// The threads on which private queues run the blocks that nobody waits for.  A
/// thread lives as long as its queue has blocks; the end of the program waits for
/// those that run.
class Workers {
 public:
  Workers() { defaultCenter(); }  // whatever blocks use must outlive the workers

  ~Workers() {
    for (Worker& worker : workers_) worker.thread.join();
  }

  void start(std::function<void()> work) {
    std::list<Worker> ended;
    const std::lock_guard<std::mutex> guard(mutex_);
    for (auto at = workers_.begin(); at != workers_.end();) {
      const auto next = std::next(at);
      if (at->hasEnded) ended.splice(ended.end(), workers_, at);
      at = next;
    }
    for (Worker& worker : ended) worker.thread.join();
    Worker& worker = workers_.emplace_back();
    worker.thread = std::thread([this, &worker, task = std::move(work)]() mutable {
      task();
      task = nullptr;
      const std::lock_guard<std::mutex> lock(mutex_);
      worker.hasEnded = true;
    });
  }

 private:
  struct Worker {
    std::thread thread;
    bool hasEnded = false;
  };

  std::mutex mutex_;
  std::list<Worker> workers_;
};

Workers& workers() {
  static Workers shared;
  return shared;
}

}  // namespace

ContextQueue::ContextQueue(ConcurrencyType type) : type_(type) {
  if (type == ConcurrencyType::privateQueue) workers();  // made early, so destroyed late
}

bool ContextQueue::isCurrent() const {
  switch (type_) {
    case ConcurrencyType::confinement:
      return std::this_thread::get_id() == maker_;
    case ConcurrencyType::privateQueue:
      return owner_.load() == std::this_thread::get_id();
    case ConcurrencyType::mainQueue:
      return MainQueue::isMainThread();
  }
  return false;
}

void ContextQueue::performBlock(std::function<void()> block) {
  if (type_ == ConcurrencyType::confinement) return block();
  if (type_ == ConcurrencyType::mainQueue) return mainQueue().async(std::move(block));
  const std::lock_guard<std::mutex> guard(mutex_);
  waiting_.emplace_back(nextTicket_++, std::move(block));
  if (std::exchange(isDraining_, true)) return;
  workers().start([self = shared_from_this()] { self->drain(); });
}

void ContextQueue::performBlockAndWait(const std::function<void()>& block) {
  if (type_ == ConcurrencyType::mainQueue) return mainQueue().performAndWait(block);
  if (type_ == ConcurrencyType::confinement || isCurrent()) return block();
  const std::shared_ptr<ContextQueue> self = shared_from_this();
  {
    std::unique_lock<std::mutex> guard(mutex_);
    enter(nextTicket_++, guard);
  }
  const Turn turn(*this);
  block();
}

void ContextQueue::enter(Ticket ticket, std::unique_lock<std::mutex>& guard) {
  turn_.wait(guard, [&] { return serving_ == ticket; });
  owner_ = std::this_thread::get_id();
}

void ContextQueue::leave() {
  const std::lock_guard<std::mutex> guard(mutex_);
  owner_ = std::thread::id();
  ++serving_;
  turn_.notify_all();
}

void ContextQueue::drain() {
  for (;;) {
    std::function<void()> block;
    {
      std::unique_lock<std::mutex> guard(mutex_);
      if (waiting_.empty()) {
        isDraining_ = false;
        return;
      }
      const Ticket ticket = waiting_.front().first;
      block = std::move(waiting_.front().second);
      waiting_.pop_front();
      enter(ticket, guard);
    }
    const Turn turn(*this);
    runUnwaited(block);
    block = nullptr;  // what it holds belongs to the queue too
  }
}

void ContextQueue::endBecauseOfMisuse() const {
  std::fputs("A managed object context or one of its objects was used outside its queue\n", stderr);
  std::abort();
}

}  // namespace zenivo
