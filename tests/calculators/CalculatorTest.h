// The fixture of the calculators' tests, with the program's first settings.

#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "app/settings/RegisteredDefaults.h"
#include "app/settings/SettingsKeys.h"
#include "calculators/CameraCalculator.h"
#include "calculators/CalculatorFixture.h"
#include "calculators/camera/CameraChooser.h"

namespace zenivo {

class CalculatorTest : public testing::Test, protected CalculatorFixture {
 protected:
  CalculatorTest() { EXPECT_TRUE(registerBundledDefaults(defaults)); }

  CalculatorEnvironment environment() { return {defaults, apertures, units, cameras}; }

  void choose(std::int64_t cameraId, const CameraKeys& keys = kCurrentCameraKeys) {
    CameraChooser(defaults, cameras, keys)
        .selectCamera(*AbstractCamera::cameraWithId(cameraId, cameras));
  }

  std::map<std::string_view, std::optional<PropertyList>> settingsNow() const {
    std::map<std::string_view, std::optional<PropertyList>> values;
    for (const std::string_view key : settings::kAllKeys) {
      values.emplace(key, defaults.objectForKey(key));
    }
    return values;
  }
};

}  // namespace zenivo
