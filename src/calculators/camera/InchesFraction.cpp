#include "calculators/camera/InchesFraction.h"

#include <fmt/format.h>

#include <numeric>

namespace zenivo {
namespace {

constexpr int kDivisions = 32;

InchesFraction fractionOf(int multiple) {
  const int common = std::gcd(multiple, kDivisions);
  const int numerator = multiple / common;
  const int denominator = kDivisions / common;
  return {
      static_cast<float>(multiple) / kDivisions,
      denominator == 1 ? std::to_string(numerator) : fmt::format("{}/{}", numerator, denominator)};
}

}  // namespace

const std::vector<InchesFraction>& InchesFraction::table() {
  static const std::vector<InchesFraction> rows = [] {
    std::vector<InchesFraction> list;
    for (int multiple = 0; multiple <= kDivisions; ++multiple) list.push_back(fractionOf(multiple));
    return list;
  }();
  return rows;
}

}  // namespace zenivo
