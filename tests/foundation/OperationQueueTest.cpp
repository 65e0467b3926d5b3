#include "foundation/OperationQueue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <latch>
#include <stdexcept>
#include <thread>
#include <vector>

#include "foundation/MainQueue.h"

namespace zenivo {
namespace {

TEST(OperationQueue, OneAtATimeKeepsTheOrder) {
  std::vector<int> order;  // no lock: only one operation runs at a time
  OperationQueue queue(1);
  for (int i = 0; i < 500; ++i) queue.addOperation([&order, i] { order.push_back(i); });
  queue.waitUntilAllOperationsAreFinished();
  EXPECT_EQ(order.size(), 500u);
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST(OperationQueue, RunsAsManyAtOnceAsAllowedAndNoMore) {
  std::atomic<int> running = 0;
  std::latch together(3);  // passed only when three run at once
  OperationQueue queue(3);
  for (int i = 0; i < 60; ++i) {
    queue.addOperation([&, i] {
      EXPECT_LE(++running, 3);
      if (i < 3) together.arrive_and_wait();
      std::this_thread::yield();
      --running;
    });
  }
  queue.waitUntilAllOperationsAreFinished();
  EXPECT_EQ(running, 0);
}

TEST(OperationQueue, CancellingDropsWhatHasNotBegun) {
  std::vector<int> done;
  std::latch begun(1), release(1);
  OperationQueue queue(1);
  queue.addOperation([&] {
    begun.count_down();
    release.wait();
    done.push_back(1);
  });
  queue.addOperation([&] { done.push_back(2); });
  begun.wait();
  queue.cancelAllOperations();
  queue.addOperation([&] { done.push_back(3); });
  release.count_down();
  queue.waitUntilAllOperationsAreFinished();
  EXPECT_THAT(done, testing::ElementsAre(1, 3));
}

// A search hands each result to the main thread and waits for it: neither waiting
// for the search there nor destroying its queue may lock the two against each other.
TEST(OperationQueue, OperationsMayWaitForTheMainThreadThatWaitsForThem) {
  int results = 0;
  const auto search = [&results] {
    for (int day = 0; day < 50; ++day) mainQueue().performAndWait([&results] { ++results; });
  };
  {
    OperationQueue queue(2);
    queue.addOperation(search);
    queue.addOperation(search);
    queue.waitUntilAllOperationsAreFinished();
    EXPECT_EQ(results, 100);
    std::latch begun(1);
    queue.addOperation([&begun] { begun.count_down(); });
    queue.addOperation(search);
    begun.wait();
  }
  EXPECT_TRUE(results == 100 || results == 150) << results;
}

TEST(OperationQueue, OtherThreadsMayAddCancelAndWait) {
  std::atomic<int> runs = 0;
  OperationQueue queue(2);
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) {
    threads.emplace_back([&queue, &runs, i] {
      for (int j = 0; j < 200; ++j) {
        queue.addOperation([&runs] { ++runs; });
        if (i == 0 && j % 50 == 0) queue.cancelAllOperations();
      }
      queue.waitUntilAllOperationsAreFinished();
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_GT(runs, 0);
  EXPECT_LE(runs, 600);
}

TEST(Unwaited, AFailingBlockIsLoggedAndTheQueuesGoOn) {
  testing::internal::CaptureStderr();
  std::atomic<int> ran = 0;
  const auto fails = [&] {
    ++ran;
    throw std::runtime_error("a block broke");
  };
  OperationQueue queue(1);
  for (int i = 0; i < 2; ++i) queue.addOperation(fails);
  queue.waitUntilAllOperationsAreFinished();
  mainQueue().async(fails);
  const DelayedCall later = mainQueue().performAfterDelay(0, fails);
  mainQueue().runUntil([&] { return ran == 4; });
  const std::string log = testing::internal::GetCapturedStderr();
  EXPECT_NE(log.find("a block broke"), std::string::npos) << log;
}

}  // namespace
}  // namespace zenivo
