#include "commands/library/CameraOutput.h"

#include <fmt/format.h>

#include "answers/common/CameraFinder.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo::cli {
namespace {

constexpr int kDecimals = 2;  // of millimetres and megapixels

bool isCocDerived(const AbstractCamera& camera) {
  return camera.coc == camera.sensorSize.circleOfConfusion();
}

}  // namespace

std::string sensorText(const SensorSize& size) {
  return fmt::format("{} x {} mm", numberWithAtMost(kDecimals, size.width),
                     numberWithAtMost(kDecimals, size.height));
}

std::string megapixelsText(const AbstractCamera& camera) {
  return camera.isDigital ? numberWithAtMost(kDecimals, camera.megapixels) : "film";
}

std::string fixedLensText(const AbstractCamera& camera) {
  std::string text;
  if (camera.isFixedFocalLength()) {
    text = numberWithAtMost(kDecimals, camera.fixedFocalLength) + " mm";
  }
  if (camera.isFixedAperture()) {
    text += (text.empty() ? "" : " ") + CameraValuesFormatter::formatAperture(camera.fixedAperture);
  }
  return text;
}

std::string cameraText(const AbstractCamera& camera, bool isChosen, const Terminal& terminal) {
  std::string text = styled(camera.modelString(), Style::heading, terminal) + "\n";
  const auto add = [&](std::string_view label, const std::string& value) {
    text += fmt::format("  {:<21}{}\n", label, value);
  };
  add("sensor", sensorText(camera.sensorSize));
  add("crop factor", numberWithExactly(1, camera.cropFactor));
  add("megapixels", megapixelsText(camera));
  add("circle of confusion",
      CameraValuesFormatter::formatCoC(camera.coc) + (isCocDerived(camera) ? "" : " (as given)"));
  if (const auto lens = fixedLensText(camera); !lens.empty()) add("fixed lens", lens);
  add("from", isOwn(camera) ? "your own" : "the catalogue");
  if (isChosen) text += "  It is the chosen camera.\n";
  return text;
}

}  // namespace zenivo::cli
