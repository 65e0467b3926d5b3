#include "calculators/timer/MainQueueTicks.h"

#include <utility>

namespace zenivo {

void MainQueueTicks::start(std::function<void()> tick) {
  tick_ = std::move(tick);
  due_ = std::chrono::steady_clock::now();
  scheduleNext();
}

void MainQueueTicks::scheduleNext() {
  due_ += std::chrono::seconds(1);
  const std::chrono::duration<double> delay = due_ - std::chrono::steady_clock::now();
  next_ = mainQueue().performAfterDelay(delay.count(), [this] {
    scheduleNext();
    const auto tick = tick_;  // which may stop the ticks or start others
    tick();
  });
}

}  // namespace zenivo
