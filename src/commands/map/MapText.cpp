#include "commands/map/MapText.h"

#include <fmt/format.h>

#include <cmath>

#include "calculators/camera/CameraValuesParser.h"
#include "commands/common/Words.h"
#include "input/InputError.h"

namespace zenivo::cli {

std::string lengthText(double metres) {
  const double size = std::abs(metres);
  if (size < 999.5) return fmt::format("{:.{}f} m", metres, size < 9.95 ? 2 : size < 99.5 ? 1 : 0);
  if (size < 99'950) return fmt::format("{:.{}f} km", metres / 1000, size < 9'995 ? 3 : 2);
  return kilometres(metres / 1000);
}

std::string pinText(const ZVLocation& pin) {
  std::string text =
      fmt::format("{:.4f}° {}, {:.4f}° {}", std::abs(pin.coordinate.latitude),
                  pin.coordinate.latitude < 0 ? 'S' : 'N', std::abs(pin.coordinate.longitude),
                  pin.coordinate.longitude < 0 ? 'W' : 'E');
  if (pin.isAltitudeKnown()) text += fmt::format(", {:.0f} m", pin.altitude);
  return text;
}

double lengthFrom(const std::string& text, const char* option) {
  const std::optional<float> metres = CameraValuesParser::parseDistance(text, UnitSystem::metric);
  if (!metres || !(*metres >= 0)) {
    throw InputError(
        fmt::format("{}: {} is no length such as 2km, 300m or 900ft", option, inQuotes(text)));
  }
  return static_cast<double>(*metres);
}

double azimuthFrom(double azimuth, const char* option) {
  if (azimuth >= 0 && azimuth <= 360) return azimuth;
  throw InputError(fmt::format("{} must be 0 to 360 degrees", option));
}

}  // namespace zenivo::cli
