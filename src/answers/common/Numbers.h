// Numbers as they are written out.

#pragma once

#include "answers/common/Moments.h"

namespace zenivo {

/// The number of JSON with the fewest digits that reads back as the same float: 35.9, not
/// 35.900001525878906.  Null for infinite and not-a-number values.
Json numberJson(float value);

}  // namespace zenivo
