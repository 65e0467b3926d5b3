// Seconds counted on the main queue.

#pragma once

#include <chrono>

#include "calculators/timer/TimerServices.h"
#include "foundation/MainQueue.h"

namespace zenivo {

/// Ticks on whole seconds from the start: one that comes late does not delay the next.
class MainQueueTicks : public TickSource {
 public:
  void start(std::function<void()> tick) override;
  void stop() override { next_.cancel(); }

 private:
  void scheduleNext();

  std::function<void()> tick_;
  std::chrono::steady_clock::time_point due_;
  DelayedCall next_;
};

}  // namespace zenivo
