#include "foundation/OperationQueue.h"

#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <utility>

#include "foundation/MainQueue.h"
#include "foundation/Unwaited.h"

namespace zenivo {

struct OperationQueue::Threads {
  explicit Threads(int count) : pool(static_cast<std::size_t>(count)) {}
  boost::asio::thread_pool pool;
};

OperationQueue::OperationQueue(int maxConcurrent)
    : threads_(std::make_unique<Threads>(maxConcurrent)) {}

OperationQueue::~OperationQueue() {
  cancelAllOperations();
  waitUntilAllOperationsAreFinished();
  threads_->pool.join();
}

void OperationQueue::addOperation(std::function<void()> operation) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(operation));
  }
  boost::asio::post(threads_->pool, [this] { runNext(); });
}

void OperationQueue::cancelAllOperations() {
  const std::lock_guard lock(mutex_);
  waiting_.clear();
}

void OperationQueue::waitUntilAllOperationsAreFinished() {
  std::unique_lock lock(mutex_);
  if (!MainQueue::isMainThread()) return finished_.wait(lock, [this] { return isFinished(); });
  lock.unlock();
  mainQueue().runUntil([this] {
    const std::lock_guard look(mutex_);
    return isFinished();
  });
}

bool OperationQueue::isFinished() const {
  return waiting_.empty() && running_ == 0;
}

void OperationQueue::runNext() {
  std::function<void()> operation;
  {
    const std::lock_guard lock(mutex_);
    if (waiting_.empty()) return;  // it was cancelled
    operation = std::move(waiting_.front());
    waiting_.pop_front();
    ++running_;
  }
  runUnwaited(operation);
  operation = nullptr;  // what it holds is gone before the queue counts as finished
  const std::lock_guard lock(mutex_);
  --running_;
  if (!isFinished()) return;
  finished_.notify_all();
  mainQueue().async([] {});  // a main thread that waits looks again
}

}  // namespace zenivo
