#include "foundation/Unwaited.h"

#include <exception>
#include <string>

#include "foundation/Log.h"

namespace zenivo {

void runUnwaited(const std::function<void()>& block) noexcept {
  try {
    block();
  } catch (const std::exception& failure) {
    log(LogLevel::error, std::string("a block that nobody waits for failed: ") + failure.what());
  } catch (...) {
    log(LogLevel::error, "a block that nobody waits for failed");
  }
}

}  // namespace zenivo
