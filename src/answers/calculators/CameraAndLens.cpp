#include "answers/calculators/CameraAndLens.h"

#include <fmt/format.h>

#include "answers/common/CameraFinder.h"
#include "calculators/camera/Texts.h"
#include "input/InputError.h"

namespace zenivo {

std::string Setup::lengthText(float metres) const {
  constexpr float kSmall = 0.01F;
  constexpr float kMetresPerInch = 0.0254F;
  if (!(metres > 0) || metres >= kSmall) return formatter().formatDistance(metres);
  return units == UnitSystem::imperial
             ? numberWithAtMost(3, metres / kMetresPerInch) + "\""
             : fmt::format("{} {}", numberWithAtMost(2, metres * 1000), commonText("unit_abbr_mm"));
}

std::string Setup::shareText(float metres, float whole) const {
  const std::string text = formatter().formatDistanceWithPercentageOf(metres, whole);
  if (!(metres > 0) || lengthText(metres) == formatter().formatDistance(metres)) return text;
  const auto share = text.find(" (");
  return lengthText(metres) + (share == text.npos ? "" : text.substr(share));
}

AbstractCamera chooseCamera(const std::optional<std::string>& name, CalculatorSession& session,
                            const CameraKeys& keys, std::string_view option) {
  CameraChooser chooser(session.settings(), session.cameras(), keys);
  if (name) chooser.selectCamera(findCamera(allCameras(session.cameras()), *name));
  if (const auto camera = chooser.camera()) return *camera;
  throw InputError(fmt::format("the camera {} is no longer there; choose one with {}",
                               inQuotes(session.settings().stringForKey(keys.model)), option));
}

Setup setupWith(const std::optional<std::string>& camera, CalculatorSession& session) {
  return {chooseCamera(camera, session), session.environment().units.currentUnits(),
          currentFocalLengthType(session.settings())};
}

void expectTaken(const EditResult& result) {
  if (result) throw InputError(fmt::format("{}: {}", result->title(), result->message()));
}

LensInput changed(LensInput lens, const LensQuestion& question, const Setup& setup) {
  if (question.focalLength) {
    lens.setTypedMillimetres(*question.focalLength * 1000, setup.focalLengthType,
                             setup.camera.cropFactor);
  }
  lens.teleconverter1 = question.teleconverter1.value_or(lens.teleconverter1);
  lens.teleconverter2 = question.teleconverter2.value_or(lens.teleconverter2);
  return lens;
}

Readout readoutOf(const Setup& setup) {
  Readout readout;
  readout.units = setup.units;
  readout.cameras.push_back({"camera", setup.camera});
  return readout;
}

void addLens(Readout& readout, const LensInput& lens, const Setup& setup, Role role) {
  const std::string label = calculatorText("focal_length");
  const float factor = lens.teleconverter();
  const float equivalent =
      lens.shownMillimetres(FocalLengthType::equivalent35mm, setup.camera.cropFactor) / 1000;
  const auto text = [](float metres) { return CameraValuesFormatter::formatFocalLength(metres); };
  auto& rows = readout.inputs;
  rows.push_back({"focalLength", label, inMillimetres(lens.focalLength, text(lens.focalLength)),
                  role, Shown::inJsonOnly});
  rows.push_back({"teleconverter", "",
                  withoutUnit(factor, CameraValuesFormatter::formatTeleconverter(factor)),
                  Role::none, Shown::inJsonOnly});
  rows.push_back({"totalFocalLength", label,
                  inMillimetres(lens.focalLength * factor, lens.totalText()), role});
  rows.push_back({"equivalentFocalLength", calculatorText("focal_length_35mm"),
                  inMillimetres(equivalent, text(equivalent)), Role::none,
                  setup.focalLengthType == FocalLengthType::equivalent35mm ? Shown::everywhere
                                                                           : Shown::inJsonOnly});
}

void addAperture(Readout& readout, const Aperture& aperture, Role role) {
  readout.inputs.push_back({"aperture", calculatorText("aperture"),
                            withoutUnit(static_cast<float>(aperture.fstop),
                                        CameraValuesFormatter::formatAperture(aperture.fstop)),
                            role});
}

void addSubjectDistance(Readout& readout, float metres, const Setup& setup, Role role) {
  readout.inputs.push_back({"subjectDistance", calculatorText("subject_distance"),
                            inMetres(metres, setup.lengthText(metres)), role});
}

void addOrientation(Readout& readout, bool isPortrait) {
  readout.inputs.push_back(
      {"orientation", "Orientation", inWords(isPortrait ? "portrait" : "landscape")});
}

}  // namespace zenivo
