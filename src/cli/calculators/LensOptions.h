// The lens of a calculator.

#pragma once

#include <CLI/CLI.hpp>

#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/Aperture.h"
#include "calculators/camera/LensInput.h"
#include "cli/calculators/CalculatorAnswer.h"
#include "cli/calculators/TypedOption.h"
#include "foundation/UserDefaults.h"

namespace zenivo::cli {

/// --focal, --teleconverter and --teleconverter2
class LensOptions {
 public:
  void addTo(CLI::App& command);

  bool isGiven() const;
  bool givesFocalLength() const { return focal_.isGiven(); }

  /// The lens with what was given put in its place.  The settings say whether the focal
  /// length is meant as the lens's own or as that of a full frame camera.
  LensInput appliedTo(LensInput lens, const UserDefaults& settings,
                      const AbstractCamera& camera) const;

 private:
  TypedOption focal_{"--focal", "35mm"};
  TypedOption teleconverter1_{"--teleconverter", "1.4x"};
  TypedOption teleconverter2_{"--teleconverter2", "2x"};
};

/// Adds the rows of a lens: its focal length, with teleconverters, and that of a full frame
/// camera with the same view, which is shown where focal lengths are typed so.
void addLens(CalculatorAnswer& answer, const LensInput& lens, const UserDefaults& settings,
             const AbstractCamera& camera, Role role = Role::none);

void addAperture(CalculatorAnswer& answer, const Aperture& aperture, Role role = Role::none);

}  // namespace zenivo::cli
