// The queue to which a context and its objects are confined.

#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace zenivo {

/// Who may use a context.
enum class ConcurrencyType {
  confinement = 0,   ///< the thread that made it
  privateQueue = 1,  ///< blocks, one after the other
  mainQueue = 2,     ///< the main thread
};

/// Lets one block at a time use a context, in the order in which they were handed
/// in.  Blocks that are waited for run on the waiting thread, the others of a private
/// queue on a thread that is started for them.
class ContextQueue : public std::enable_shared_from_this<ContextQueue> {
 public:
  explicit ContextQueue(ConcurrencyType type);

  ConcurrencyType type() const { return type_; }
  /// Whether the caller is on the queue.
  bool isCurrent() const;

  void performBlock(std::function<void()> block);
  void performBlockAndWait(const std::function<void()>& block);

  /// Ends the program when the caller is not on the queue; nothing with NDEBUG.
  void assertCurrent() const {
#ifndef NDEBUG
    if (!isCurrent()) endBecauseOfMisuse();
#endif
  }

 private:
  using Ticket = std::uint64_t;

  /// Gives the turn to the next block when it goes, however the block ends.
  class Turn {
   public:
    explicit Turn(ContextQueue& queue) : queue_(queue) {}
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() { queue_.leave(); }

   private:
    ContextQueue& queue_;
  };

  void enter(Ticket ticket, std::unique_lock<std::mutex>& guard);
  void leave();
  void drain();
  [[noreturn]] void endBecauseOfMisuse() const;

  const ConcurrencyType type_;
  const std::thread::id maker_ = std::this_thread::get_id();
  std::atomic<std::thread::id> owner_{};  // thread of the block that runs

  std::mutex mutex_;
  std::condition_variable turn_;
  Ticket nextTicket_ = 0;  // given to the next block
  Ticket serving_ = 0;     // of the block that runs or may run
  std::deque<std::pair<Ticket, std::function<void()>>> waiting_;  // blocks nobody waits for
  bool isDraining_ = false;
};

}  // namespace zenivo
