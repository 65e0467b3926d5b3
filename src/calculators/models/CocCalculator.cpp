#include "calculators/models/CocCalculator.h"

#include <cmath>

#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// Diagonal and viewing distance of the reference print, in metres: the root of 164 by 10
/// inches, and 10 inches.
constexpr double kReferenceDiagonal = 0.3252787112615887;
constexpr double kReferenceDistance = 0.254;

// 1 and 0.3, as they were first stored with 23 bits.
constexpr double kManufacturerFactor = 0.9999999776482582;
constexpr double kSharpEyeFactor = 0.3000000026077032;

void decode(const KeyedUnarchiver& coder, const char* key, float& value) {
  if (coder.containsValueForKey(key)) value = coder.decodeFloat(key);
}

}  // namespace

float CocCalculator::adjustedCoc() {
  if (!autoCalculateCoc_) return adjustedCoc_;
  const float diagonal = std::sqrt(printWidth_ * printWidth_ + printHeight_ * printHeight_);
  const double e = eyesight_ == 0 ? kManufacturerFactor : kSharpEyeFactor;
  adjustedCoc_ = static_cast<float>((kReferenceDiagonal / diagonal) *
                                    (e * cameraCoc_ * (viewingDistance_ / kReferenceDistance)));
  return adjustedCoc_;
}

std::string CocCalculator::stringForEyeSight(std::int64_t eyesight) {
  return calculatorText(eyesight == 0 ? "dof_eye_sight_default_manufacturer_standard"
                                      : "dof_eye_sight_20_20_vision");
}

std::vector<std::string> CocCalculator::eyeSightOptions() {
  return {stringForEyeSight(0), stringForEyeSight(1)};
}

void CocCalculator::encodeWithCoder(KeyedArchiver& coder) const {
  coder.encode("coc_eyesight", eyesight_);
  coder.encode("coc_print_width", printWidth_);
  coder.encode("coc_print_height", printHeight_);
  coder.encode("coc_viewing_distance", viewingDistance_);
  coder.encode("coc_autocalculate", autoCalculateCoc_);
  coder.encode("coc_adjusted", adjustedCoc_);
}

std::optional<CocCalculator> CocCalculator::initWithCoder(const KeyedUnarchiver& coder) {
  CocCalculator calculator;
  calculator.eyesight_ = coder.decodeInteger("coc_eyesight");
  decode(coder, "coc_print_width", calculator.printWidth_);
  decode(coder, "coc_print_height", calculator.printHeight_);
  decode(coder, "coc_viewing_distance", calculator.viewingDistance_);
  decode(coder, "coc_adjusted", calculator.adjustedCoc_);
  if (coder.containsValueForKey("coc_autocalculate")) {
    calculator.autoCalculateCoc_ = coder.decodeBool("coc_autocalculate");
  }
  return calculator;
}

}  // namespace zenivo
