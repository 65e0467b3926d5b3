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

std::vector<ResultRow> DofCalculator::results() const {
  const CameraValuesFormatter formatter = environment().formatter();
  const float depth = model_.depthOfField();
  const auto share = [&formatter, depth](float part) {
    return formatter.formatDistanceWithPercentageOf(part, depth);
  };
  return {{"dof_hyperfocal_distance", formatter.formatDistance(model_.hyperfocal())},
          {"dof_hyperfocal_near_limit", formatter.formatDistance(model_.hyperfocalNearLimit())},
          {"dof_near_limit", formatter.formatDistance(model_.dofNearLimit())},
          {"dof_far_limit", formatter.formatDistance(model_.dofFarLimit())},
          {"dof_total_dof", formatter.formatDistance(depth)},
          {"dof_depth_in_front", share(model_.depthOfFieldInFront())},
          {"dof_depth_behind", share(model_.depthOfFieldBehind())}};
}

}  // namespace zenivo
