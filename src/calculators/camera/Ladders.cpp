#include "calculators/camera/Ladders.h"

#include <fmt/format.h>

#include <numeric>
#include <utility>

namespace zenivo {
namespace {

/// Denominators of the fractions of a second, with the text that shows them.
constexpr std::pair<float, const char*> kFractions[] = {
    {8000.0F, "1/8000"}, {6400.0F, "1/6400"}, {5000.0F, "1/5000"}, {4000.0F, "1/4000"},
    {3200.0F, "1/3200"}, {2500.0F, "1/2500"}, {2000.0F, "1/2000"}, {1600.0F, "1/1600"},
    {1250.0F, "1/1250"}, {1000.0F, "1/1000"}, {800.0F, "1/800"},   {640.0F, "1/640"},
    {500.0F, "1/500"},   {400.0F, "1/400"},   {320.0F, "1/320"},   {250.0F, "1/250"},
    {200.0F, "1/200"},   {160.0F, "1/160"},   {125.0F, "1/125"},   {100.0F, "1/100"},
    {80.0F, "1/80"},     {60.0F, "1/60"},     {50.0F, "1/50"},     {40.0F, "1/40"},
    {30.0F, "1/30"},     {25.0F, "1/25"},     {20.0F, "1/20"},     {15.0F, "1/15"},
    {13.0F, "1/13"},     {10.0F, "1/10"},     {8.0F, "1/8"},       {6.0F, "1/6"},
    {5.0F, "1/5"},       {4.0F, "1/4"},       {3.0F, "1/3"},       {2.5F, "1/2.5"},
    {2.0F, "1/2.0"},     {1.6F, "1/1.6"},     {1.3F, "1/1.3"},
};

constexpr float kSeconds[] = {1, 1.3F, 1.6F, 2, 2.5F, 3, 4, 5, 6, 8, 10, 13, 15, 20, 25, 30};

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

std::vector<float> FocalLength::standardFocalLengths() {
  return {0.007F, 0.008F, 0.009F, 0.01F,  0.011F, 0.012F, 0.013F, 0.014F, 0.015F, 0.016F, 0.017F,
          0.018F, 0.019F, 0.02F,  0.021F, 0.022F, 0.023F, 0.024F, 0.025F, 0.026F, 0.027F, 0.028F,
          0.029F, 0.03F,  0.032F, 0.033F, 0.035F, 0.04F,  0.045F, 0.05F,  0.055F, 0.056F, 0.06F,
          0.065F, 0.07F,  0.075F, 0.08F,  0.085F, 0.09F,  0.095F, 0.1F,   0.105F, 0.135F, 0.15F,
          0.18F,  0.2F,   0.25F,  0.3F,   0.4F,   0.5F,   0.6F,   0.7F,   0.8F,   0.9F,   1.0F};
}

std::vector<int> Iso::standardISOValues() {
  return {1,     3,     6,     10,    12,    16,    20,    25,    32,   40,   50,
          64,    80,    100,   125,   160,   200,   250,   320,   400,  500,  640,
          800,   1000,  1250,  1600,  2000,  2500,  3200,  4000,  5000, 6400, 8000,
          10000, 12800, 16000, 20000, 25600, 32000, 51200, 102400};
}

int Iso::findNearestIsoOfValue(float value, std::span<const int> inArray) {
  return nearestElement(inArray, value);
}

ShutterSpeed ShutterSpeed::shutterSpeedWithValue(float value, std::string text) {
  return {value, std::move(text)};
}

std::vector<ShutterSpeed> ShutterSpeed::standardShutterSpeeds() {
  std::vector<ShutterSpeed> ladder;
  ladder.reserve(std::size(kFractions) + std::size(kSeconds));
  for (const auto& [denominator, text] : kFractions) {
    ladder.push_back(shutterSpeedWithValue(1 / denominator, text));
  }
  for (const float seconds : kSeconds) {
    ladder.push_back(shutterSpeedWithValue(seconds, fmt::format("{}\"", seconds)));
  }
  return ladder;
}

ShutterSpeed ShutterSpeed::findNearestShutterSpeedOfValue(float value,
                                                          std::span<const ShutterSpeed> inArray) {
  return nearestElement(inArray, value, &ShutterSpeed::value);
}

const std::vector<InchesFraction>& InchesFraction::table() {
  static const std::vector<InchesFraction> rows = [] {
    std::vector<InchesFraction> list;
    for (int multiple = 0; multiple <= kDivisions; ++multiple) list.push_back(fractionOf(multiple));
    return list;
  }();
  return rows;
}

}  // namespace zenivo
