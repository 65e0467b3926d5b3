#include "foundation/MainQueue.h"

#include <algorithm>
#include <atomic>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <future>
#include <thread>
#include <utility>

#include "foundation/Unwaited.h"

namespace zenivo {
namespace {

const std::thread::id mainThread = std::this_thread::get_id();

std::chrono::steady_clock::duration durationOf(double seconds) {
  constexpr double kThirtyYears = 1e9;  // well inside the clock's range
  const double bounded = seconds > 0 ? std::min(seconds, kThirtyYears) : 0;
  return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
      std::chrono::duration<double>(bounded));
}

}  // namespace

struct DelayedCall::State {
  State(boost::asio::io_context& context, double seconds, std::function<void()> function)
      : timer(context, durationOf(seconds)), work(std::move(function)) {}

  /// True for the first caller: to it alone belongs the work.
  bool claim() { return !claimed.exchange(true); }

  boost::asio::steady_timer timer;
  std::function<void()> work;
  std::atomic<bool> claimed = false;
};

DelayedCall::DelayedCall(std::shared_ptr<State> state) : state_(std::move(state)) {}

DelayedCall& DelayedCall::operator=(DelayedCall&& other) noexcept {
  if (this != &other) {
    cancel();
    state_ = std::move(other.state_);
  }
  return *this;
}

void DelayedCall::cancel() {
  if (state_ != nullptr && state_->claim()) {
    boost::system::error_code ignored;  // it never fails, but would throw if it did
    state_->timer.cancel(ignored);
    state_->work = nullptr;
  }
  state_ = nullptr;
}

struct MainQueue::Loop {
  boost::asio::io_context context;
  // Without this the context would stop whenever it runs out of work.
  boost::asio::executor_work_guard<boost::asio::io_context::executor_type> guard{
      context.get_executor()};
};

MainQueue::MainQueue() : loop_(std::make_unique<Loop>()) {}
MainQueue::~MainQueue() = default;

bool MainQueue::isMainThread() {
  return std::this_thread::get_id() == mainThread;
}

void MainQueue::async(std::function<void()> work) {
  boost::asio::post(loop_->context, [block = std::move(work)] { runUnwaited(block); });
}

void MainQueue::performAndWait(std::function<void()> work) {
  if (isMainThread()) return work();
  std::packaged_task<void()> task(std::move(work));
  std::future<void> done = task.get_future();
  boost::asio::post(loop_->context, std::move(task));
  done.get();
}

DelayedCall MainQueue::performAfterDelay(double seconds, std::function<void()> work) {
  auto state = std::make_shared<DelayedCall::State>(loop_->context, seconds, std::move(work));
  state->timer.async_wait([state](const boost::system::error_code&) {
    if (state->claim()) runUnwaited(std::exchange(state->work, nullptr));
  });
  return DelayedCall(std::move(state));
}

void MainQueue::runUntilIdle() {
  while (loop_->context.poll() > 0) continue;
}

void MainQueue::runFor(double seconds) {
  loop_->context.run_for(durationOf(seconds));
}

void MainQueue::runUntil(const std::function<bool()>& condition) {
  while (!condition()) loop_->context.run_one();
}

MainQueue& mainQueue() {
  // Never destroyed: handles of delayed calls in static objects may outlive main().
  static MainQueue& queue = *new MainQueue;
  return queue;
}

}  // namespace zenivo
