#include "commands/library/CameraFormOptions.h"

#include <fmt/format.h>

#include <cmath>

#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/TextScanner.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

constexpr const char* kAutomatic = "auto";
constexpr const char* kNone = "none";

[[noreturn]] void refuse(std::string_view option, std::string_view text, std::string_view form) {
  throw InputError(fmt::format("{} cannot be {}: write it as in {}", option, inQuotes(text), form));
}

/// A number with or without its unit.  Whether 0 will do is the form's business.
std::optional<float> scanNumber(TextScanner& scanner, std::string_view unit) {
  const auto number = scanner.number();
  scanner.scan(unit);
  if (!number || !std::isfinite(static_cast<float>(*number))) return std::nullopt;
  return static_cast<float>(*number);
}

float numberFrom(std::string_view option, const std::string& text, std::string_view unit,
                 std::string_view form) {
  TextScanner scanner(text);
  const auto number = scanNumber(scanner, unit);
  if (!number || !scanner.atEnd()) refuse(option, text, form);
  return *number;
}

SensorSize sensorFrom(const std::string& text) {
  TextScanner scanner(text);
  const auto width = scanNumber(scanner, "mm");
  const bool isCrossed = scanner.scan("x") || scanner.scan("×");
  const auto height = scanNumber(scanner, "mm");
  if (!width || !isCrossed || !height || !scanner.atEnd()) refuse("--sensor", text, "36x24");
  return {*width, *height};
}

}  // namespace

void CameraFormOptions::addTo(CLI::App& command) {
  command.add_option("--sensor", sensor_, "Size of the sensor or the frame, in millimetres")
      ->type_name("WxH");
  CLI::Option* megapixels =
      command.add_option("--megapixels", megapixels_, "Its resolution")->type_name("N");
  CLI::Option* film = command.add_flag("--film", isFilm_, "It takes film")->excludes(megapixels);
  command.add_flag("--digital", isDigital_, "It does not (as at first)")->excludes(film);
  command
      .add_option("--coc", coc_,
                  "Circle of confusion in millimetres, or auto (as at first): from the sensor")
      ->type_name("MM");
  command
      .add_option("--focal", focalLength_,
                  "Focal length in millimetres of a lens that cannot be changed, or none")
      ->type_name("MM");
  command.add_option("--aperture", aperture_, "Its aperture where that cannot be changed, or none")
      ->type_name("F");
}

CameraDescription CameraFormOptions::description() const {
  CameraDescription camera;
  if (sensor_) camera.sensor = sensorFrom(*sensor_);
  if (isFilm_ || isDigital_) camera.isFilm = isFilm_;
  if (megapixels_) camera.megapixels = numberFrom("--megapixels", *megapixels_, "MP", "24.2");
  if (coc_) {
    camera.coc.emplace();
    if (*coc_ != kAutomatic) camera.coc = numberFrom("--coc", *coc_, "mm", "0.03 or auto");
  }
  if (focalLength_) {
    camera.focalLength.emplace();
    if (*focalLength_ != kNone) {
      camera.focalLength = numberFrom("--focal", *focalLength_, "mm", "35mm or none");
    }
  }
  if (aperture_) {
    camera.fstop.emplace();
    if (*aperture_ != kNone) {
      const auto fstop = CameraValuesParser::parseAperture(*aperture_);
      if (!fstop) refuse("--aperture", *aperture_, "f/2.8 or none");
      camera.fstop = fstop;
    }
  }
  return camera;
}

std::string_view optionOf(CameraFormField field) {
  switch (field) {
    using enum CameraFormField;
    case name:
      break;
    case sensorWidth:
    case sensorHeight:
      return "--sensor";
    case megapixels:
      return "--megapixels";
    case coc:
      return "--coc";
    case focalLength:
      return "--focal";
  }
  return "";
}

}  // namespace zenivo::cli
