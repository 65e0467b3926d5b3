#include "calculators/camera/ApertureManager.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// A stop whose engraved number is not its rounded value.
struct Marking {
  int index;
  float fstop;
};

constexpr float kNoStop = -1;

constexpr Marking kThirdsMarkings[] = {
    {2, 1.2F},     {11, 3.5F},    {15, 5.6F},    {27, 22},      {38, 80},      {39, 90},
    {40, 101},     {43, kNoStop}, {44, kNoStop}, {45, 180},     {46, 200},     {47, kNoStop},
    {49, kNoStop}, {50, kNoStop}, {51, 360},     {52, 400},     {53, kNoStop}, {55, kNoStop},
    {56, kNoStop}, {57, 720},     {58, 800},     {59, kNoStop},
};
constexpr Marking kHalvesMarkings[] = {
    {7, 3.3F},     {10, 5.6F},    {18, 22},      {26, 90},      {27, 107},
    {29, kNoStop}, {30, kNoStop}, {33, kNoStop}, {34, kNoStop}, {35, 430},
    {37, kNoStop}, {38, kNoStop}, {39, 860},
};
constexpr Marking kFullMarkings[] = {
    {5, 5.6F}, {7, 11}, {9, 22}, {11, 45}, {13, 90}, {15, kNoStop}, {17, kNoStop}, {19, kNoStop},
};

/// Lenses are built for these although they stand on no third of a stop.
constexpr double kExtraThirds[] = {1.7, 0.95, 1.5, 2.4};

struct LadderShape {
  int lastIndex;
  double step;  // in stops
  std::span<const Marking> markings;
};

LadderShape shapeOf(ApertureStopType type) {
  switch (type) {
    case ApertureStopType::halves:
      return {40, 1.0 / 2, kHalvesMarkings};
    case ApertureStopType::full:
      return {20, 1, kFullMarkings};
    case ApertureStopType::thirds:
      break;
  }
  return {60, 1.0 / 3, kThirdsMarkings};
}

float markingOf(const LadderShape& shape, int index, float value) {
  const auto found = std::ranges::find(shape.markings, index, &Marking::index);
  return found == shape.markings.end() ? value : found->fstop;
}

ApertureStopType stopTypeFrom(std::int64_t setting) {
  return setting == 1 || setting == 2 ? static_cast<ApertureStopType>(setting)
                                      : ApertureStopType::thirds;
}

}  // namespace

ApertureManager::ApertureManager(UserDefaults& defaults)
    : defaults_(defaults),
      type_(stopTypeFrom(defaults.integerForKey(settings::global_cameraStops))) {
  generateStopsForType(type_);
}

void ApertureManager::setCurrentApertureStopType(ApertureStopType type) {
  if (type == type_) return;
  type_ = type;
  defaults_.setInteger(static_cast<int>(type), settings::global_cameraStops);
  defaults_.synchronize();
  generateStopsForType(type);
}

void ApertureManager::generateStopsForType(ApertureStopType type) {
  stops_.clear();
  const LadderShape shape = shapeOf(type);
  for (int n = 0; n <= shape.lastIndex; ++n) {
    const float value = static_cast<float>(std::exp2(shape.step * n * 0.5));
    const float marking = markingOf(shape, n, value);
    if (marking == kNoStop) continue;
    stops_.push_back({std::trunc(marking * 10 + 0.5) / 10, value});
  }
  if (type == ApertureStopType::thirds) {
    for (const double extra : kExtraThirds) stops_.push_back({extra, extra});
    std::ranges::stable_sort(stops_, {}, &Aperture::fstop);
  }
}

Aperture ApertureManager::apertureForStop(float stop) const {
  return nearestElement(stops_, static_cast<double>(stop), &Aperture::fstop);
}

std::string ApertureManager::apertureStopTypeToString(ApertureStopType type) {
  const char* key = "aperture_stops_thirds";
  if (type == ApertureStopType::halves) key = "aperture_stops_halves";
  if (type == ApertureStopType::full) key = "aperture_stops_full";
  return calculatorText(key);
}

}  // namespace zenivo
