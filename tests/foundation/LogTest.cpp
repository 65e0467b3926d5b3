#include "foundation/Log.h"

#include <gtest/gtest.h>

namespace zenivo {
namespace {

TEST(Log, TheThresholdHoldsBackWhatMattersLess) {
  const LogLevel before = logThreshold();
  setLogThreshold(LogLevel::error);
  testing::internal::CaptureStderr();
  log(LogLevel::error, "one");
  log(LogLevel::warning, "two");
  setLogThreshold(LogLevel::verbose);
  log(LogLevel::verbose, "three");
  setLogThreshold(LogLevel::none);
  log(LogLevel::error, "four");
  setLogThreshold(before);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "zenivo: one\nzenivo: three\n");
}

}  // namespace
}  // namespace zenivo
