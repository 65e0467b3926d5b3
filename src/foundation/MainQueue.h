// Work on the main thread.

#pragma once

#include <functional>
#include <memory>

namespace zenivo {

/// A call that waits for its time.  Destroying or reassigning the handle cancels
/// the call, so an owner that keeps it as a member is never called after its end.
class DelayedCall {
 public:
  DelayedCall() = default;
  DelayedCall(DelayedCall&&) noexcept = default;
  DelayedCall& operator=(DelayedCall&& other) noexcept;
  ~DelayedCall() { cancel(); }

  /// Drops the call.  On the main thread this is final: it will not run.  From
  /// another thread it may be running already.
  void cancel();

 private:
  friend class MainQueue;
  struct State;
  explicit DelayedCall(std::shared_ptr<State> state);

  std::shared_ptr<State> state_;
};

/// The queue of the main thread, the one that entered main().  Work runs there,
/// one piece at a time in the order it came, and only while one of the run
/// functions is on the main thread's stack.  Everything else may be called from
/// any thread.
class MainQueue {
 public:
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;

  static bool isMainThread();

  /// Queues the work and returns at once.
  void async(std::function<void()> work);

  /// Has the work done on the main thread and returns when it is: at once when
  /// called there, else after what was queued before.
  void performAndWait(std::function<void()> work);

  /// Queues the work when the delay is over; a delay that is not positive is none.
  [[nodiscard]] DelayedCall performAfterDelay(double seconds, std::function<void()> work);

  /// Runs what is queued and due, and what that queues in turn.  Main thread.
  void runUntilIdle();

  /// Runs what comes for as long as given.  Main thread.
  void runFor(double seconds);

  /// Runs what comes until the condition holds; it is tested at first and after
  /// each piece of work, so whoever fulfils it elsewhere queues something to have
  /// it looked at.  Main thread.
  void runUntil(const std::function<bool()>& condition);

 private:
  friend MainQueue& mainQueue();
  MainQueue();
  ~MainQueue();

  struct Loop;
  std::unique_ptr<Loop> loop_;
};

/// The main queue.
MainQueue& mainQueue();

}  // namespace zenivo
