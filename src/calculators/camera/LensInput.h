// A lens as the user enters it: focal length and teleconverters.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/UserDefaults.h"

namespace zenivo {

/// The factor as the optical models store it: one that is not above 0 stands for
/// no teleconverter.
constexpr float teleconverterFactor(float factor) {
  return factor > 0 ? factor : 1;
}

/// How a typed focal length is meant, by its number in the settings.
enum class FocalLengthType {
  nominal = 0,         ///< as engraved on the lens
  equivalent35mm = 1,  ///< the one of a full frame camera with the same field of view
};

std::string focalLengthTypeToString(FocalLengthType type);
FocalLengthType currentFocalLengthType(const UserDefaults& defaults);
void setCurrentFocalLengthType(UserDefaults& defaults, FocalLengthType type);

struct LensInput {
  float focalLength = 0;  ///< metres, of the lens alone
  float teleconverter1 = 1;
  float teleconverter2 = 1;

  /// Both factors together; a factor that is not above 0 counts as 1.
  float teleconverter() const;

  /// Takes over a typed number of millimetres.  One that is not above 0 or not a
  /// number changes nothing, nor does an equivalent one on a sensor without size.
  void setTypedMillimetres(double millimetres, FocalLengthType type, float cropFactor);

  /// The number to show in the entry field: millimetres of the meaning chosen.
  float shownMillimetres(FocalLengthType type, float cropFactor) const;

  /// The focal length with teleconverters, and with some what it is made of:
  /// "280 mm (200 mm + 1.4x)".
  std::string totalText() const;

  friend bool operator==(const LensInput&, const LensInput&) = default;
};

/// The settings under which a calculator keeps its lens.
struct LensKeys {
  std::string_view focalLength;
  std::string_view teleconverter1;
  std::string_view teleconverter2;
};

LensInput lensFromSettings(const UserDefaults& defaults, const LensKeys& keys);
void saveLens(UserDefaults& defaults, const LensKeys& keys, const LensInput& lens);

/// The lens of an optical model, and the same into it.
template <class Model>
LensInput lensOf(const Model& model) {
  return {model.focalLength(), model.teleconverter1(), model.teleconverter2()};
}

template <class Model>
void setLens(Model& model, const LensInput& lens) {
  model.setFocalLength(lens.focalLength);
  model.setTeleconverter1(lens.teleconverter1);
  model.setTeleconverter2(lens.teleconverter2);
}

}  // namespace zenivo
