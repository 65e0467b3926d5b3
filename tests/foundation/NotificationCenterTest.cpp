#include "foundation/NotificationCenter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace zenivo {
namespace {

using testing::ElementsAre;
using Observer = NotificationCenter::Observer;

TEST(NotificationCenter, NamesAndObjectsSelectTheObservers) {
  NotificationCenter center;
  std::vector<int> told;
  const int here = 0, there = 0;
  const auto note = [&told](int number) {
    return [&told, number](const Notification& notification) {
      EXPECT_EQ(std::any_cast<std::string>(notification.userInfo), notification.name + "!");
      told.push_back(number);
    };
  };
  const Observer any = center.addObserver("did save", nullptr, note(1));
  const Observer ofHere = center.addObserver("did save", &here, note(2));
  const Observer ofThere = center.addObserver("did save", &there, note(3));
  const Observer ofOther = center.addObserver("will save", &here, note(4));
  center.postNotificationName("did save", &here, std::string("did save!"));
  EXPECT_THAT(told, ElementsAre(1, 2));
  center.postNotificationName("did save", nullptr, std::string("did save!"));
  EXPECT_THAT(told, ElementsAre(1, 2, 1));
}

TEST(NotificationCenter, ObserversComeAndGoWhileTheyAreCalled) {
  NotificationCenter center;
  std::vector<int> told;
  Observer second;
  std::vector<Observer> added;
  Observer first = center.addObserver("n", nullptr, [&](const Notification&) {
    told.push_back(1);
    second = Observer();  // not called any more
    added.push_back(center.addObserver("n", nullptr, [&](const Notification&) {
      told.push_back(3);  // not called yet
    }));
  });
  second = center.addObserver("n", nullptr, [&](const Notification&) { told.push_back(2); });
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(told, ElementsAre(1));
  center.postNotificationName("n", nullptr);
  EXPECT_THAT(told, ElementsAre(1, 1, 3));
}

TEST(NotificationCenter, AnObserverMayOutliveItsCenter) {
  auto center = std::make_unique<NotificationCenter>();
  Observer observer = center->addObserver("n", nullptr, [](const Notification&) {});
  center = nullptr;
  observer = Observer();
}

TEST(NotificationCenter, ThreadsMayPostAndObserve) {
  NotificationCenter center;
  std::atomic<int> told = 0;
  const Observer lasting = center.addObserver("n", nullptr, [&](const Notification&) { ++told; });
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) {
    threads.emplace_back([&center] {
      for (int j = 0; j < 200; ++j) {
        const Observer passing = center.addObserver("n", nullptr, [](const Notification&) {});
        center.postNotificationName("n", nullptr);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(told, 600);
}

}  // namespace
}  // namespace zenivo
