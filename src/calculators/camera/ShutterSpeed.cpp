#include "calculators/camera/ShutterSpeed.h"

#include <fmt/format.h>

#include <utility>

#include "calculators/camera/NearestLookup.h"

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

}  // namespace

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

}  // namespace zenivo
