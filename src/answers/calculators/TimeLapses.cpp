#include "answers/calculators/TimeLapses.h"

#include <cmath>
#include <utility>

#include "answers/calculators/RowFinder.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

TimelapseIntervalRow findEvent(std::string_view typed) {
  const std::vector<TimelapseIntervalRow> rows = timelapseIntervals();
  std::vector<std::string> names;
  for (const TimelapseIntervalRow& row : rows) names.push_back(row.eventText());
  return rows[findRow(names, typed, "zenivo timelapse intervals")];
}

Quantity quantity(double value, std::string_view unit, std::string text) {
  return {std::isfinite(value) ? Json(value) : Json(nullptr), unit, std::move(text)};
}

std::string intervalText(double seconds) {
  constexpr int kDecimals = 2;
  if (!(seconds > 0)) return kNoValueText;
  return CameraValuesFormatter::formatShutterSpeed(static_cast<float>(seconds), false, kDecimals);
}

std::string durationText(double seconds) {
  const std::string text = CameraValuesFormatter::formatTimeDuration(seconds, true, true);
  return text.empty() ? CameraValuesFormatter::formatShutterSpeed(0) : text;
}

}  // namespace

TimelapseReport answer(const TimelapseQuestion& question, CalculatorSession& session) {
  using enum TimelapseField;
  TimelapseCalculator calculator(session.settings());
  calculator.setFreeVariable(
      question.event ? clipLength
                     : freeVariable(question.solveFor, calculator.freeVariable(),
                                    {{shootingInterval, "interval", question.interval.has_value()},
                                     {clipLength, "clip", question.clip.has_value()},
                                     {eventDuration, "duration", question.duration.has_value()}}));
  const auto set = [&calculator](TimelapseField field, std::optional<double> value) {
    if (value) calculator.setValue(field, *value);
  };
  set(fps, question.fps);
  set(imageSize, question.imageSize);
  if (question.event) calculator.selectRow(findEvent(*question.event));
  set(shootingInterval, question.interval);
  set(clipLength, question.clip);
  set(eventDuration, question.duration);
  calculator.save();
  return {session.environment().units.currentUnits(), calculator.model(),
          calculator.freeVariable()};
}

TimelapseReport keptTimelapse(CalculatorSession& session) {
  const TimelapseCalculator calculator(session.settings());
  return {session.environment().units.currentUnits(), calculator.model(),
          calculator.freeVariable()};
}

Readout readout(const TimelapseReport& report) {
  using enum TimelapseField;
  const auto& [units, model, solved] = report;
  Readout readout;
  readout.units = units;
  const auto add = [&readout, solved = report.solved](TimelapseField field, std::string_view key,
                                                      Quantity value) {
    readout.inputs.push_back({key, TimelapseCalculator::labelOf(field), std::move(value),
                              field == solved ? Role::solved : Role::none});
  };
  add(shootingInterval, "shootingInterval",
      quantity(model.shootingInterval, "s", intervalText(model.shootingInterval)));
  add(clipLength, "clipLength", quantity(model.clipLength, "s", durationText(model.clipLength)));
  add(eventDuration, "eventDuration",
      quantity(model.eventDuration, "s", durationText(model.eventDuration)));
  add(fps, "fps", quantity(model.fps, "fps", CameraValuesFormatter::formatFps(model.fps)));
  add(imageSize, "imageSize",
      quantity(model.imageSize, "MB", CameraValuesFormatter::formatMB(model.imageSize)));

  const double frames = std::round(model.clipLength * model.fps);
  const bool hasPhotos = std::isfinite(model.eventDuration / model.shootingInterval);
  const std::int32_t photos = model.numberOfPhotos();
  const float memory = model.totalMemoryUsage();
  readout.results = {
      {"numberOfPhotos",
       calculatorText("timelapse_number_of_photos"),
       {photos, "", hasPhotos ? std::to_string(photos) : kNoValueText}},
      {"numberOfFrames", "Frames of the clip",
       quantity(frames, "", std::isfinite(frames) ? numberWithAtMost(0, frames) : kNoValueText)},
      {"memoryUsage", calculatorText("timelapse_memory_usage"),
       quantity(memory, "MB", hasPhotos ? CameraValuesFormatter::formatMB(memory) : kNoValueText)}};
  return readout;
}

Json json(const TimelapseReport& report) {
  return json(readout(report));
}

IntervalTableReport answer(const IntervalTableQuestion& /*question*/,
                           CalculatorSession& /*session*/) {
  return {timelapseIntervals()};
}

Json json(const IntervalTableReport& report) {
  Json intervals = Json::array();
  for (std::size_t i = 0; i < report.rows.size(); ++i) {
    const TimelapseIntervalRow& row = report.rows[i];
    intervals.push_back(
        {{"number", i + 1},
         {"key", row.event},
         {"event", row.eventText()},
         {"interval", {{"value", row.intervalValue}, {"unit", "s"}, {"text", row.intervalText()}}},
         {"eventDuration",
          {{"value", row.eventDurationValue}, {"unit", "h"}, {"text", row.eventDurationText()}}}});
  }
  return {{"intervals", std::move(intervals)}};
}

}  // namespace zenivo
