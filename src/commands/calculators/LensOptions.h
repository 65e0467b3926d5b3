// The lens of a calculator.

#pragma once

#include <CLI/CLI.hpp>

#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/Aperture.h"
#include "calculators/camera/LensInput.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/TypedOption.h"
#include "foundation/UserDefaults.h"

namespace zenivo::cli {

/// --focal, --teleconverter and --teleconverter2
class LensOptions {
 public:
  void addTo(CLI::App& command);

  const TypedOption& focal() const { return focal_; }

  /// Gives the calculator its `lens` with what was given put in its place, if anything was.
  /// The settings say whether the focal length is meant as the lens's own or as that of a
  /// full frame camera.  Throws InputError.
  template <class Calculator>
  void applyTo(Calculator& calculator, const LensInput& lens, const UserDefaults& settings,
               const AbstractCamera& camera) const {
    if (isGiven()) expectTaken(calculator.setLens(changed(lens, settings, camera)));
  }

 private:
  bool isGiven() const;
  LensInput changed(LensInput lens, const UserDefaults& settings,
                    const AbstractCamera& camera) const;

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
