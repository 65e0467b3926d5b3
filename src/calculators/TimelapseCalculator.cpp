#include "calculators/TimelapseCalculator.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

constexpr std::int32_t kDefaultFps = 25;
constexpr double kDefaultClipLength = 30;
constexpr double kDefaultEventDuration = 1800;
constexpr double kDefaultImageSize = 4;
constexpr double kSecondsPerHour = 3600;
constexpr int kIntervalDecimals = 2;

double storedOr(const UserDefaults& defaults, std::string_view key, double otherwise) {
  const float stored = defaults.floatForKey(key);
  return stored == 0 ? otherwise : static_cast<double>(stored);
}

std::int32_t wholeFrames(double fps) {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return fps > 0 ? static_cast<std::int32_t>(std::min(fps, kMost)) : 0;
}

std::string_view keyOf(TimelapseField field) {
  switch (field) {
    case TimelapseField::shootingInterval:
      return "shooting_interval";
    case TimelapseField::clipLength:
      return "clip_length";
    case TimelapseField::eventDuration:
      return "event_duration";
    case TimelapseField::fps:
      return "fps";
    case TimelapseField::imageSize:
      return "image_size";
  }
  return "";
}

}  // namespace

TimelapseCalculator::TimelapseCalculator(UserDefaults& defaults) : defaults_(defaults) {
  load();
}

void TimelapseCalculator::load() {
  model_ = Timelapse::initWithFps(
      wholeFrames(storedOr(defaults_, settings::timelapse_fps, kDefaultFps)),
      storedOr(defaults_, settings::timelapse_clipLength, kDefaultClipLength),
      storedOr(defaults_, settings::timelapse_eventDuration, kDefaultEventDuration),
      storedOr(defaults_, settings::timelapse_imageSize, kDefaultImageSize));
  model_.calculateShootingInterval();
  freeVariable_ = TimelapseField::shootingInterval;
  setFreeVariable(
      static_cast<TimelapseField>(defaults_.integerForKey(settings::timelapse_freeVariable)));
}

void TimelapseCalculator::save() const {
  defaults_.setFloat(static_cast<float>(model_.clipLength), settings::timelapse_clipLength);
  defaults_.setFloat(static_cast<float>(model_.eventDuration), settings::timelapse_eventDuration);
  defaults_.setFloat(static_cast<float>(model_.fps), settings::timelapse_fps);
  defaults_.setFloat(static_cast<float>(model_.imageSize), settings::timelapse_imageSize);
  defaults_.setInteger(static_cast<int>(freeVariable_), settings::timelapse_freeVariable);
  defaults_.synchronize();
}

void TimelapseCalculator::setFreeVariable(TimelapseField variable) {
  using enum TimelapseField;
  if (variable == shootingInterval || variable == clipLength || variable == eventDuration) {
    freeVariable_ = variable;
  }
}

std::string TimelapseCalculator::labelOf(TimelapseField field) {
  return calculatorText(keyOf(field));
}

void TimelapseCalculator::setValue(TimelapseField field, double value) {
  switch (field) {
    case TimelapseField::shootingInterval:
      model_.shootingInterval = value;
      break;
    case TimelapseField::clipLength:
      model_.clipLength = value;
      break;
    case TimelapseField::eventDuration:
      model_.eventDuration = value;
      break;
    case TimelapseField::fps:
      model_.fps = wholeFrames(value);
      break;
    case TimelapseField::imageSize:
      model_.imageSize = value;
      break;
  }
  calculateInverseData();
}

void TimelapseCalculator::selectRow(const TimelapseIntervalRow& row) {
  model_.shootingInterval = row.intervalValue;
  model_.eventDuration = row.eventDurationValue * kSecondsPerHour;
  model_.calculateClipLength();
}

void TimelapseCalculator::calculateInverseData() {
  switch (freeVariable_) {
    case TimelapseField::clipLength:
      model_.calculateClipLength();
      break;
    case TimelapseField::eventDuration:
      model_.calculateEventDuration();
      break;
    default:
      model_.calculateShootingInterval();
      break;
  }
}

std::string TimelapseCalculator::textOf(TimelapseField field) const {
  const auto duration = [](double seconds) {
    const std::string text = CameraValuesFormatter::formatTimeDuration(seconds, true, true);
    return text.empty() ? CameraValuesFormatter::formatShutterSpeed(0) : text;
  };
  switch (field) {
    case TimelapseField::shootingInterval:
      if (!(model_.shootingInterval > 0)) return kNoValueText;
      return CameraValuesFormatter::formatShutterSpeed(static_cast<float>(model_.shootingInterval),
                                                       false, kIntervalDecimals);
    case TimelapseField::clipLength:
      return duration(model_.clipLength);
    case TimelapseField::eventDuration:
      return duration(model_.eventDuration);
    case TimelapseField::fps:
      return CameraValuesFormatter::formatFps(model_.fps);
    case TimelapseField::imageSize:
      return CameraValuesFormatter::formatMB(model_.imageSize);
  }
  return kNoValueText;
}

std::vector<ResultRow> TimelapseCalculator::results() const {
  const bool hasPhotos = std::isfinite(model_.eventDuration / model_.shootingInterval);
  return {{keyOf(freeVariable_), textOf(freeVariable_)},
          {"timelapse_number_of_photos",
           hasPhotos ? std::to_string(model_.numberOfPhotos()) : kNoValueText},
          {"timelapse_memory_usage",
           hasPhotos ? CameraValuesFormatter::formatMB(model_.totalMemoryUsage()) : kNoValueText}};
}

}  // namespace zenivo
