#include "calculators/EquivalentFocalLengthCalculator.h"

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraChooser.h"

namespace zenivo {
namespace {

constexpr LensKeys kEquivalentLens{settings::equivalentFocalLength_FocalLength,
                                   settings::equivalentFocalLength_Teleconverter,
                                   settings::equivalentFocalLength_Teleconverter2};

}  // namespace

EquivalentFocalLengthCalculator::EquivalentFocalLengthCalculator(
    const CalculatorEnvironment& environment)
    : CameraCalculator(environment) {}

void EquivalentFocalLengthCalculator::load() {
  loadCamera();
  camera2_ = chosenCamera(defaults(), environment().cameras, kSecondCameraKeys);
  const AbstractCamera first = camera().value_or(AbstractCamera());
  const AbstractCamera second = camera2_.value_or(AbstractCamera());
  const LensInput lens = loadLens(kEquivalentLens);
  model_ = EquivalentFocalLength(
      first.sensorSize, second.sensorSize, first.coc, second.coc, lens.focalLength,
      lens.teleconverter1, lens.teleconverter2,
      loadAperture(settings::equivalentFocalLength_Aperture),
      defaults().floatForKey(settings::equivalentFocalLength_SubjectDistance));
  model_.setIsCamera1FixedFocalLength(first.isFixedFocalLength());
  model_.setIsCamera1FixedAperture(first.isFixedAperture());
  model_.setCamera2FixedFocalLength(second.fixedFocalLengthInMetres());
  model_.setIsCamera2FixedAperture(second.isFixedAperture());
  model_.calculateMatch(environment().apertures);
}

void EquivalentFocalLengthCalculator::save() const {
  saveLens(defaults(), kEquivalentLens, lensOf(model_));
  defaults().setFloat(static_cast<float>(model_.aperture().fstop),
                      settings::equivalentFocalLength_Aperture);
  defaults().setFloat(model_.subjectDistance(), settings::equivalentFocalLength_SubjectDistance);
  defaults().synchronize();
}

EditResult EquivalentFocalLengthCalculator::setLens(const LensInput& lens) {
  if (model_.isCamera1FixedFocalLength()) return cannotChangeFocalLength();
  zenivo::setLens(model_, lens);
  model_.calculateMatch(environment().apertures);
  return std::nullopt;
}

EditResult EquivalentFocalLengthCalculator::setAperture(const Aperture& aperture) {
  if (model_.isCamera1FixedAperture()) return cannotChangeAperture();
  model_.setAperture(aperture);
  model_.calculateMatch(environment().apertures);
  return std::nullopt;
}

void EquivalentFocalLengthCalculator::setSubjectDistance(float metres) {
  model_.setSubjectDistance(metres);
  model_.calculateMatch(environment().apertures);
}

EditResult EquivalentFocalLengthCalculator::apertureRefusal() const {
  if (model_.isCamera2FixedAperture() || model_.match().camera2Dof) return std::nullopt;
  return noAperture();
}

}  // namespace zenivo
