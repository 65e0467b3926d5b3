#include "foundation/Date.h"

#include <chrono>

namespace zenivo {

Date Date::now() {
  const std::chrono::duration<double> sinceEpoch =
      std::chrono::system_clock::now().time_since_epoch();
  return withTimeIntervalSince1970(sinceEpoch.count());
}

}  // namespace zenivo
