// Fractions of an inch as a ruler shows them.

#pragma once

#include <string>
#include <vector>

namespace zenivo {

struct InchesFraction {
  float decimalValue = 0;  ///< inches, 0 to 1
  std::string fraction;    ///< in lowest terms, from "0" over "1/32" to "1"

  /// The 33 multiples of 1/32 from 0 to 1, ascending.
  static const std::vector<InchesFraction>& table();
};

}  // namespace zenivo
