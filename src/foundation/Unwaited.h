// Blocks that nobody waits for.

#pragma once

#include <functional>

namespace zenivo {

/// Runs a block that was handed to a queue and is not waited for.  What it throws would
/// reach nobody and end the program: it is logged, and the queue goes on.
void runUnwaited(const std::function<void()>& block) noexcept;

}  // namespace zenivo
