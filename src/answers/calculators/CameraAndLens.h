// Camera and lens of a question to a calculator.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/CameraChooser.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/LensInput.h"
#include "calculators/models/Refusal.h"

namespace zenivo {

/// A lens as it was typed; what is missing stays as it is kept.
struct LensQuestion {
  /// Metres, of the lens itself or of the full frame camera with the same view: the settings
  /// say how a focal length is meant.
  std::optional<float> focalLength;
  std::optional<float> teleconverter1;
  std::optional<float> teleconverter2;

  bool isGiven() const { return focalLength || teleconverter1 || teleconverter2; }
};

/// The camera in use, and how lengths are read and written.
struct Setup {
  AbstractCamera camera;
  UnitSystem units = UnitSystem::metric;
  FocalLengthType focalLengthType = FocalLengthType::nominal;

  CameraValuesFormatter formatter() const { return CameraValuesFormatter(units); }
  /// A length of the scene; below a centimetre in millimetres or decimals of an inch.
  std::string lengthText(float metres) const;
  /// The same with its share of a whole.
  std::string shareText(float metres, float whole) const;
};

/// The camera of a name, chosen in the session from then on, or without a name the one chosen
/// earlier.  Throws InputError for a name that is not one camera's, and when the one chosen
/// earlier has gone; `option` is where another can be named.
AbstractCamera chooseCamera(const std::optional<std::string>& name, CalculatorSession& session,
                            const CameraKeys& keys = kCurrentCameraKeys,
                            std::string_view option = "--camera");

/// The same with the session's settings.
Setup setupWith(const std::optional<std::string>& camera, CalculatorSession& session);

/// Throws the InputError of an edit that was refused, with its localised text.
void expectTaken(const EditResult& result);

/// The lens with what was typed put in its place.
LensInput changed(LensInput lens, const LensQuestion& question, const Setup& setup);

/// Gives the calculator its `lens` with what was typed, if anything was.  Throws InputError.
template <class Calculator>
void editLens(Calculator& calculator, const LensInput& lens, const LensQuestion& question,
              const Setup& setup) {
  if (question.isGiven()) expectTaken(calculator.setLens(changed(lens, question, setup)));
}

/// A readout that begins with the camera.
Readout readoutOf(const Setup& setup);

/// The rows of a lens: its focal length, with teleconverters, and that of a full frame camera
/// with the same view, which is shown where focal lengths are typed so.
void addLens(Readout& readout, const LensInput& lens, const Setup& setup, Role role = Role::none);
void addAperture(Readout& readout, const Aperture& aperture, Role role = Role::none);
void addSubjectDistance(Readout& readout, float metres, const Setup& setup, Role role = Role::none);
void addOrientation(Readout& readout, bool isPortrait);

}  // namespace zenivo
