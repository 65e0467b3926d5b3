#include "calculators/TimelapseCalculator.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"
#include "foundation/Bundle.h"
#include "foundation/KeyedArchive.h"
#include "foundation/LocalizedString.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

constexpr const char* kIntervalTexts = "TimelapseIntervals";

constexpr std::int32_t kDefaultFps = 25;
constexpr double kDefaultClipLength = 30;
constexpr double kDefaultEventDuration = 1800;
constexpr double kDefaultImageSize = 4;
constexpr double kSecondsPerHour = 3600;

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

std::string TimelapseIntervalRow::eventText() const {
  return localizedString(event, kIntervalTexts);
}

std::string TimelapseIntervalRow::intervalText() const {
  return localizedString(interval, kIntervalTexts);
}

std::string TimelapseIntervalRow::eventDurationText() const {
  return localizedString(eventDuration, kIntervalTexts);
}

std::vector<TimelapseIntervalRow> timelapseIntervals() {
  return timelapseIntervals(resourcePath("timelapseIntervals.plist"));
}

std::vector<TimelapseIntervalRow> timelapseIntervals(const std::filesystem::path& file) {
  std::vector<TimelapseIntervalRow> rows;
  const auto list = readPropertyListFile(file);
  if (!list || list->array() == nullptr) return rows;
  for (const PropertyList& each : *list->array()) {
    const KeyedUnarchiver entry(each);
    TimelapseIntervalRow row{entry.decodeString("Event"), entry.decodeString("Interval"),
                             entry.decodeString("EventDuration"),
                             entry.decodeDouble("IntervalValue"),
                             entry.decodeDouble("EventDurationValue")};
    if (row.intervalValue > 0 && row.eventDurationValue > 0) rows.push_back(std::move(row));
  }
  return rows;
}

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

}  // namespace zenivo
