#include "calculators/DofCalculator.h"

#include "app/settings/SettingsKeys.h"
#include "calculators/CocForm.h"

namespace zenivo {
namespace {

constexpr LensKeys kDofLens{settings::dof_focalLength, settings::dof_teleconverter,
                            settings::dof_teleconverter2};

}  // namespace

DofCalculator::DofCalculator(const CalculatorEnvironment& environment, DofForm form)
    : CameraCalculator(environment), form_(form) {}

void DofCalculator::load() {
  loadCamera();
  model_ = Dof();
  model_.setCircleOfConfusion(circleOfConfusionInUse());
  model_.setIsFixedFocalLength(isFocalLengthFixed());
  model_.setIsFixedAperture(isApertureFixed());
  zenivo::setLens(model_, loadLens(kDofLens));
  model_.setAperture(loadAperture(settings::dof_aperture));
  model_.setSubjectDistance(defaults().floatForKey(settings::dof_subjectDistance));
  model_.calculateDOFValues();
  selectedPage_ = defaults().integerForKey(settings::dof_selectedPage);
}

void DofCalculator::save() const {
  saveLens(defaults(), kDofLens, lensOf(model_));
  defaults().setFloat(static_cast<float>(model_.aperture().fstop), settings::dof_aperture);
  defaults().setFloat(model_.subjectDistance(), settings::dof_subjectDistance);
  defaults().setInteger(selectedPage_, settings::dof_selectedPage);
  defaults().synchronize();
}

float DofCalculator::circleOfConfusionInUse() const {
  const float cameraCoc = camera() ? camera()->coc : 0;
  if (form_ == DofForm::basic) return cameraCoc;
  return storedCocCalculator(defaults(), cameraCoc).adjustedCoc();
}

EditResult DofCalculator::setLens(const LensInput& lens) {
  if (model_.isFixedFocalLength()) return cannotChangeFocalLength();
  return edit([&lens](Dof& model) { zenivo::setLens(model, lens); });
}

EditResult DofCalculator::setAperture(const Aperture& aperture) {
  if (model_.isFixedAperture()) return cannotChangeAperture();
  return edit([&aperture](Dof& model) { model.setAperture(aperture); });
}

EditResult DofCalculator::setSubjectDistance(float metres) {
  return edit([metres](Dof& model) { model.setSubjectDistance(metres); });
}

EditResult DofCalculator::solve(Dof& edited) const {
  edited.calculateDOFValues();
  return std::nullopt;
}

}  // namespace zenivo
