// Contexts and their queues.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <thread>

#include "foundation/MainQueue.h"
#include "store/LibraryModel.h"

namespace zenivo::testing {
namespace {

TEST(Queue, BlocksOfAPrivateQueueRunInTheOrderOfTheCalls) {
  const TemporaryFolder folder;
  const auto context = contextOn(openStore(folder / "a.sqlite"), ConcurrencyType::privateQueue);
  std::vector<int> order;
  for (int i = 0; i < 100; ++i) {
    context->performBlock([&order, i] { order.push_back(i); });
    if (i % 10 == 5) {
      context->performBlockAndWait(
          [&] { EXPECT_EQ(order.size(), static_cast<std::size_t>(i + 1)); });
    }
  }
  context->performBlockAndWait([&] {
    EXPECT_EQ(order.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(order));
    context->performBlockAndWait([&] { order.clear(); });  // on the queue: at once
  });
}

TEST(Queue, ABlockKeepsItsContextAlive) {
  const TemporaryFolder folder;
  std::atomic<bool> done = false;
  {
    const auto context = contextOn(openStore(folder / "a.sqlite"), ConcurrencyType::privateQueue);
    context->performBlock([&done, raw = context.get()] {
      insertNamed(*raw, "Shelf", "Travel");
      saveOrFail(*raw);
      done = true;
    });
  }
  while (!done) std::this_thread::yield();
  const auto context = contextOn(openStore(folder / "a.sqlite"));
  EXPECT_EQ(context->countForFetchRequest({.entityName = "Shelf"}), 1U);
}

TEST(Queue, ChildrenReachAParentOnAnotherQueue) {
  const TemporaryFolder folder;
  const auto main = contextOn(openStore(folder / "a.sqlite"), ConcurrencyType::mainQueue);
  const auto shelf = insertNamed(*main, "Shelf", "Travel");
  const auto child = childOf(main, ConcurrencyType::privateQueue);
  bool done = false;
  child->performBlock([&] {
    const auto same = child->existingObjectWithID(shelf->objectID());
    ASSERT_NE(same, nullptr);
    same->addRelatedObject(insertNamed(*child, "Book", "Cairo"), "books");
    saveOrFail(*child);
    mainQueue().async([&done] { done = true; });
  });
  mainQueue().runUntil([&done] { return done; });
  EXPECT_EQ(shelf->relatedCountForKey("books"), 1U);
  saveOrFail(*main);
}

/// What a child saved gets its permanent identity when the parent saves.
TEST(Queue, ChildrenLearnThePermanentIdentities) {
  const TemporaryFolder folder;
  const auto parent = contextOn(openStore(folder / "a.sqlite"));
  const auto child = childOf(parent);
  const auto shelf = insertNamed(*child, "Shelf", "Travel");
  const auto book = insertNamed(*child, "Book", "Cairo");
  book->setRelatedObject(shelf, "shelf");
  saveOrFail(*child);
  EXPECT_TRUE(shelf->objectID().isTemporaryID());
  saveOrFail(*parent);
  const auto shelves = fetchAll(*child, {.entityName = "Shelf"});
  EXPECT_EQ(shelves, ManagedObjects{shelf});
  EXPECT_FALSE(shelf->objectID().isTemporaryID());
  EXPECT_EQ(book->valueForKey("shelf"), Value(shelf->objectID()));
  EXPECT_FALSE(child->hasChanges());
}

using QueueDeathTest = ::testing::Test;

TEST(QueueDeathTest, UseOutsideTheQueueEndsTestBuilds) {
#ifdef NDEBUG
  GTEST_SKIP() << "release builds do not look";
#endif
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  const TemporaryFolder folder;
  const auto coordinator = openStore(folder / "a.sqlite");
  const auto context = contextOn(coordinator, ConcurrencyType::privateQueue);
  EXPECT_DEATH((void)context->hasChanges(), "outside its queue");
  EXPECT_DEATH(
      {
        ManagedObjectPtr shelf;
        context->performBlockAndWait([&] { shelf = insertNamed(*context, "Shelf", "Travel"); });
        (void)shelf->valueForKey("name");
      },
      "outside its queue");
  EXPECT_DEATH(
      {
        const auto main = contextOn(coordinator, ConcurrencyType::mainQueue);
        std::thread([&] { (void)main->executeFetchRequest({.entityName = "Shelf"}); }).join();
      },
      "outside its queue");
}

TEST(ContextQueue, ABlockThatFailsUnheardIsLoggedAndTheNextRuns) {
  const TemporaryFolder folder;
  const auto context = contextOn(openStore(folder / "a.sqlite"), ConcurrencyType::privateQueue);
  ::testing::internal::CaptureStderr();
  context->performBlock([] { throw std::runtime_error("a block broke"); });
  bool ran = false;
  context->performBlockAndWait([&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_NE(::testing::internal::GetCapturedStderr().find("a block broke"), std::string::npos);
}

}  // namespace
}  // namespace zenivo::testing
