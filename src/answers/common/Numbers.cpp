#include "answers/common/Numbers.h"

#include <cmath>

#include "foundation/ShortestDecimal.h"

namespace zenivo {

Json numberJson(float value) {
  return std::isfinite(value) ? Json(shortestDecimal(value)) : Json(nullptr);
}

}  // namespace zenivo
