#include "commands/calculators/Options.h"

#include "calculators/camera/CameraValuesParser.h"

namespace zenivo::cli {

CLI::Option* TypedOption::addTo(CLI::App& command, const std::string& description) {
  CLI::Option* option = command.add_option(name_, text_, description)->type_name(example_);
  option_ = option;
  return option;
}

std::optional<float> TypedOption::readLength(UnitSystem units) const {
  return readPositive(CameraValuesParser::parseDistance, units);
}

void TypedOption::refuse() const {
  throw InputError(
      fmt::format("{} cannot be {}; write it as in {}", name_, inQuotes(text_), example_));
}

void TypedOption::refuseTooLarge(std::string_view mostText) const {
  throw InputError(
      fmt::format("{} cannot be {}: it is at most {}", name_, inQuotes(text_), mostText));
}

CLI::Option* TextOption::addTo(CLI::App& command, const std::string& name,
                               const std::string& description, const std::string& type) {
  CLI::Option* option = command.add_option(name, text_, description)->type_name(type);
  option_ = option;
  return option;
}

void LensOptions::addTo(CLI::App& command) {
  focal_.addTo(command, "Focal length");
  teleconverter1_.addTo(command, "Teleconverter behind the lens; 1x for none");
  teleconverter2_.addTo(command, "A second teleconverter");
}

LensQuestion LensOptions::question() const {
  constexpr float kLongestLens = 100;  // metres; telescopes have a tenth of it
  constexpr float kMostTimes = 100;
  return {focal_.readUpTo(kLongestLens, "100 m", CameraValuesParser::parseFocalLength),
          teleconverter1_.readUpTo(kMostTimes, "100x", CameraValuesParser::parseTeleconverter),
          teleconverter2_.readUpTo(kMostTimes, "100x", CameraValuesParser::parseTeleconverter)};
}

void CocOptions::addTo(CLI::App& command) {
  command.add_flag("--advanced", isAdvanced_,
                   "Take the circle of confusion of the print, not the camera's");
  coc_.addTo(command, "A circle of confusion of your own");
  printWidth_.addTo(command, "Width of the print");
  printHeight_.addTo(command, "Height of the print");
  viewingDistance_.addTo(command, "Distance from which the print is seen");
  eyesight_.addTo(command, "--eyesight", "The viewer's: standard, or sharp (20/20 vision)",
                  "EYESIGHT");
}

CocQuestion CocOptions::question(UnitSystem units) const {
  return {isAdvanced_,
          coc_.read(CameraValuesParser::parseCoC),
          printWidth_.readLength(units),
          printHeight_.readLength(units),
          viewingDistance_.readLength(units),
          eyesight_.value()};
}

void OrientationOption::addTo(CLI::App& command) {
  CLI::Option* portrait = command.add_flag("--portrait", isPortrait_, "The camera upright");
  command.add_flag("--landscape", isLandscape_, "The camera level")->excludes(portrait);
}

CLI::Option* ListOption::addTo(CLI::App& command, const std::string& description,
                               const std::string& type) {
  return command.add_option(name_, texts_, description)
      ->delimiter(',')
      ->expected(1, CLI::detail::expected_max_vector_size)
      ->type_name(type);
}

void ListOption::refuse(const std::string& text) const {
  throw InputError(
      fmt::format("{} cannot be {}; write it as in {}", name_, inQuotes(text), example_));
}

void StopsOptions::addTo(CLI::App& command) {
  CLI::Option* list =
      list_.addTo(command, "Stops to show (default: f/2.8 to f/16)", "f/4,f/8,f/11");
  command.add_flag("--all", wantsAll_, "Show every stop")->excludes(list);
}

StopsQuestion StopsOptions::question() const {
  return {list_.read(CameraValuesParser::parseAperture), wantsAll_};
}

}  // namespace zenivo::cli
