// How far long work has come, and whether it is still wanted.

#pragma once

#include <functional>

namespace zenivo {

/// Hears how much of a piece of work is done, 0 to 1, and says whether to go on.  Work
/// that cannot tell how much says 0.  When the answer is false the work ends soon, and
/// what was found stays found.
using GoOn = std::function<bool(double done)>;

}  // namespace zenivo
