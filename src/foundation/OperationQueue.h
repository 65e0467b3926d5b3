// Work in the background.

#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace zenivo {

/// Runs operations on threads of its own, begun in the order they were added and
/// never more at a time than given; with one at a time, strictly one after the
/// other.  All operations may be called from any thread.
class OperationQueue {
 public:
  /// REQUIRES: maxConcurrent at least 1.
  explicit OperationQueue(int maxConcurrent);

  /// Cancels what has not begun and waits for what has, as below.
  ~OperationQueue();

  void addOperation(std::function<void()> operation);

  /// Drops the operations that have not begun.  Running ones are not interrupted.
  void cancelAllOperations();

  /// Returns when no operation is queued or running.  On the main thread the main
  /// queue runs meanwhile, so that operations may wait for work done there.  Not
  /// to be called from an operation of this queue.
  void waitUntilAllOperationsAreFinished();

 private:
  struct Threads;

  void runNext();
  bool isFinished() const;  // with mutex_ held

  std::mutex mutex_;
  std::condition_variable finished_;
  std::deque<std::function<void()>> waiting_;
  int running_ = 0;
  std::unique_ptr<Threads> threads_;
};

}  // namespace zenivo
