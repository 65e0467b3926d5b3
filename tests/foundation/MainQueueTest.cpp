#include "foundation/MainQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <stdexcept>
#include <thread>
#include <vector>

namespace zenivo {
namespace {

using testing::ElementsAre;

TEST(MainQueue, WorkRunsInTheOrderItCame) {
  std::vector<int> order;
  mainQueue().async([&] {
    order.push_back(1);
    mainQueue().async([&] { order.push_back(4); });
    mainQueue().performAndWait([&] { order.push_back(2); });  // the main thread does not wait
  });
  mainQueue().async([&] { order.push_back(3); });
  EXPECT_TRUE(order.empty());
  mainQueue().runUntilIdle();
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
}

TEST(MainQueue, AWorkerWaitsForItsWorkOnTheMainThread) {
  std::vector<int> order;
  std::atomic<bool> finished = false;
  mainQueue().async([&] { order.push_back(0); });
  std::thread worker([&] {
    EXPECT_FALSE(MainQueue::isMainThread());
    for (int i = 1; i <= 3; ++i) {
      mainQueue().performAndWait([&, i] {
        EXPECT_TRUE(MainQueue::isMainThread());
        order.push_back(i);
      });
    }
    EXPECT_THROW(mainQueue().performAndWait([] { throw std::runtime_error("no"); }),
                 std::runtime_error);
    finished = true;
    mainQueue().async([] {});
  });
  mainQueue().runUntil([&] { return finished.load(); });
  worker.join();
  EXPECT_THAT(order, ElementsAre(0, 1, 2, 3));
}

TEST(MainQueue, DelayedCallsRunInTheOrderOfTheirTimes) {
  std::vector<int> order;
  const DelayedCall later = mainQueue().performAfterDelay(0.03, [&] { order.push_back(2); });
  const DelayedCall sooner = mainQueue().performAfterDelay(0.01, [&] { order.push_back(1); });
  const DelayedCall never = mainQueue().performAfterDelay(1e300, [&] { order.push_back(3); });
  mainQueue().runUntil([&] { return order.size() == 2; });
  EXPECT_THAT(order, ElementsAre(1, 2));
  const DelayedCall past = mainQueue().performAfterDelay(-5, [&] { order.push_back(4); });
  const DelayedCall none = mainQueue().performAfterDelay(std::nan(""), [&] { order.push_back(5); });
  mainQueue().runUntilIdle();
  EXPECT_THAT(order, ElementsAre(1, 2, 4, 5));
}

TEST(MainQueue, CancelledCallsNeverRun) {
  std::vector<int> order;
  const auto call = [&](int number) {
    return mainQueue().performAfterDelay(0, [&order, number] { order.push_back(number); });
  };
  DelayedCall cancelled = call(1);
  cancelled.cancel();
  cancelled.cancel();
  DelayedCall rescheduled = call(2);
  rescheduled = call(3);
  { const DelayedCall ownerIsGone = call(4); }
  DelayedCall moved = call(5);
  const DelayedCall target = std::move(moved);
  // Both are due at once: the first still stops the second.
  DelayedCall second;
  const DelayedCall first = mainQueue().performAfterDelay(0, [&] { second.cancel(); });
  second = call(6);
  mainQueue().runUntilIdle();
  EXPECT_THAT(order, ElementsAre(3, 5));
}

TEST(MainQueue, ACancelledCallReleasesWhatItHolds) {
  auto held = std::make_shared<int>(1);
  DelayedCall call = mainQueue().performAfterDelay(1000, [held] {});
  EXPECT_EQ(held.use_count(), 2);
  call.cancel();
  EXPECT_EQ(held.use_count(), 1);
}

TEST(MainQueue, CallsCancelledWhileTheyComeDueRunOnceAtMost) {
  std::atomic<int> runs = 0;
  std::atomic<bool> finished = false;
  std::thread worker([&] {
    for (int i = 0; i < 2000; ++i) {
      DelayedCall call = mainQueue().performAfterDelay(0, [&] { ++runs; });
      if (i % 3 != 0) std::this_thread::yield();
      call.cancel();
    }
    finished = true;
    mainQueue().async([] {});
  });
  mainQueue().runUntil([&] { return finished.load(); });
  worker.join();
  mainQueue().runUntilIdle();
  EXPECT_LE(runs, 2000);
}

}  // namespace
}  // namespace zenivo
