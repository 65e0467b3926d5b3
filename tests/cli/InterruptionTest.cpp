#include "cli/Interruption.h"

#include <gtest/gtest.h>

namespace zenivo::cli {
namespace {

TEST(Interruption, IsNotedAndTheSignalThenDoesWhatItDidBefore) {
  static volatile std::sig_atomic_t own = 0;
  const auto before = std::signal(SIGINT, [](int) { own = 1; });
  for (int round = 0; round < 2; ++round) {
    const Interruption interruption;
    EXPECT_FALSE(interruption.hasCome());
    std::raise(SIGINT);
    EXPECT_TRUE(interruption.hasCome());
  }
  EXPECT_EQ(own, 0);
  std::raise(SIGINT);
  EXPECT_EQ(own, 1);
  std::signal(SIGINT, before);
}

}  // namespace
}  // namespace zenivo::cli
