#include "cli/library/CameraOutput.h"

#include <fmt/format.h>

#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"
#include "cli/common/CameraFinder.h"
#include "cli/output/Numbers.h"

namespace zenivo::cli {
namespace {

constexpr int kDecimals = 2;  // of millimetres and megapixels

bool isCocDerived(const AbstractCamera& camera) {
  return camera.coc == camera.sensorSize.circleOfConfusion();
}

Json numberOrNull(float value) {
  return value > 0 ? numberJson(value) : Json(nullptr);
}

}  // namespace

Json cameraJson(const AbstractCamera& camera, bool isChosen) {
  return {{"cameraId",
           isOwn(camera) ? Json(nullptr) : Json(std::get<std::int64_t>(camera.cameraId.value()))},
          {"name", camera.modelString()},
          {"brand", camera.brand ? Json(*camera.brand) : Json(nullptr)},
          {"model", camera.shortModelString()},
          {"sensorWidth", numberJson(camera.sensorSize.width)},
          {"sensorHeight", numberJson(camera.sensorSize.height)},
          {"megapixels", numberOrNull(camera.megapixels)},
          {"film", !camera.isDigital},
          {"cropFactor", numberJson(camera.cropFactor)},
          {"coc", numberJson(camera.coc)},
          {"cocDerived", isCocDerived(camera)},
          {"focalLength", numberOrNull(camera.fixedFocalLength)},
          {"aperture", numberOrNull(camera.fixedAperture)},
          {"chosen", isChosen}};
}

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
