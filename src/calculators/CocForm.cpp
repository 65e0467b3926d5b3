#include "calculators/CocForm.h"

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/AbstractCamera.h"
#include "foundation/NumberFormatter.h"

namespace zenivo {
namespace {

float numberOrZero(std::string_view text) {
  const double number = NumberFormatter().numberFromString(text).value_or(0);
  return std::isfinite(number) ? static_cast<float>(number) : 0;
}

float currentCameraCoc(const CalculatorEnvironment& environment) {
  const auto camera = AbstractCamera::currentCamera(environment.defaults, environment.cameras);
  return camera ? camera->coc : 0;
}

}  // namespace

float TypedLength::metres(UnitSystem units) const {
  const float first = numberOrZero(feetOrMetres);
  if (units == UnitSystem::metric) return first;
  return (first + numberOrZero(inches) * kFeetPerInch) * kMetresPerFoot;
}

CocForm::CocForm(const CalculatorEnvironment& environment)
    : environment_(environment),
      model_(storedCocCalculator(environment.defaults, currentCameraCoc(environment))) {}

void CocForm::setPrintSize(const TypedLength& width, const TypedLength& height) {
  model_.setPrintWidth(width.metres(environment_.units.currentUnits()));
  model_.setPrintHeight(height.metres(environment_.units.currentUnits()));
}

void CocForm::setViewingDistance(const TypedLength& distance) {
  model_.setViewingDistance(distance.metres(environment_.units.currentUnits()));
}

EditResult CocForm::done(std::string_view typedCoc) {
  if (!model_.autoCalculateCoc()) {
    const float coc = numberOrZero(typedCoc);
    if (isRefusedResult(coc)) return noCircleOfConfusion();
    model_.setAdjustedCoc(coc);
  }
  environment_.defaults.setObject(archivedObject(model_), settings::global_cameraAdjustedCocValues);
  environment_.defaults.synchronize();
  return std::nullopt;
}

CocCalculator storedCocCalculator(const UserDefaults& defaults, float cameraCoc) {
  const auto archive = defaults.objectForKey(settings::global_cameraAdjustedCocValues);
  CocCalculator calculator =
      archive ? unarchivedObject<CocCalculator>(*archive).value_or(CocCalculator())
              : CocCalculator();
  calculator.setCameraCoc(cameraCoc);
  return calculator;
}

}  // namespace zenivo
