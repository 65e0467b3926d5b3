// The circle of confusion for a print, its viewer and his distance.
//
// Error: 1e-7 of the value, for the factors of eyesight are 1 and 0.3 rounded to floats.
// Special cases: a print without size has an infinite circle.
// Source: proportion to the makers' print of 10 by 8 inches seen from 10 inches.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/KeyedArchive.h"

namespace zenivo {

/// Adjusts a camera's circle of confusion, which holds for a print of 10 by 8 inches
/// seen from 10 inches: larger prints shrink it, larger distances let it grow, both in
/// proportion, and the eyesight of an eye chart's 20/20 line takes three tenths of it.
class CocCalculator {
 public:
  /// Derive the value, else the user's own holds.
  bool autoCalculateCoc() const { return autoCalculateCoc_; }
  void setAutoCalculateCoc(bool automatic) { autoCalculateCoc_ = automatic; }

  /// Of the current camera, in millimetres; not archived.
  float cameraCoc() const { return cameraCoc_; }
  void setCameraCoc(float millimetres) { cameraCoc_ = millimetres; }

  /// 0 for what makers assume, any other value for 20/20 vision.
  std::int64_t eyesight() const { return eyesight_; }
  void setEyesight(std::int64_t eyesight) { eyesight_ = eyesight; }

  // Metres.
  float printWidth() const { return printWidth_; }
  void setPrintWidth(float metres) { printWidth_ = metres; }
  float printHeight() const { return printHeight_; }
  void setPrintHeight(float metres) { printHeight_ = metres; }
  float viewingDistance() const { return viewingDistance_; }
  void setViewingDistance(float metres) { viewingDistance_ = metres; }

  /// The adjusted value in millimetres, derived and kept, or the user's; infinite for
  /// a print without size.
  float adjustedCoc();
  void setAdjustedCoc(float millimetres) { adjustedCoc_ = millimetres; }

  /// The localised name of an eyesight, and of both in the order of their numbers.
  std::string eyesightString() const { return stringForEyeSight(eyesight_); }
  static std::string stringForEyeSight(std::int64_t eyesight);
  static std::vector<std::string> eyeSightOptions();

  // Keyed archiving.  What an archive lacks takes the value of a new calculator.
  static constexpr std::string_view kClassName = "CocCalculator";
  void encodeWithCoder(KeyedArchiver& coder) const;
  static std::optional<CocCalculator> initWithCoder(const KeyedUnarchiver& coder);

 private:
  bool autoCalculateCoc_ = true;
  float cameraCoc_ = 0;
  std::int64_t eyesight_ = 0;
  float printWidth_ = 0.254F;
  float printHeight_ = 0.2032F;
  float viewingDistance_ = 0.254F;
  float adjustedCoc_ = 0;
};

}  // namespace zenivo
