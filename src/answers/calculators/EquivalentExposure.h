// The same light with other values and a filter.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "answers/calculators/Inverse.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/ExposureCalculator.h"
#include "calculators/camera/CameraFilter.h"
#include "calculators/camera/CameraValuesParser.h"

namespace zenivo {

/// Values of a photograph as they were typed.
struct ShotQuestion {
  std::optional<float> fstop;         ///< the nearest stop is taken
  std::optional<float> shutterSpeed;  ///< seconds
  std::optional<float> iso;
};

/// Values that are missing stay as they are kept, but aperture and ISO value of the shot follow
/// a test shot's that is given.  Where all three values of the shot are given and no filter,
/// the filter is solved for.
struct ExposureQuestion {
  ShotQuestion test;
  /// In place of a test shot: a light of the table, by its name or number.
  std::optional<std::string> light;
  ShotQuestion shot;
  std::optional<FilterValue> filter;
  std::optional<ExposureField> solveFor;  ///< one of the words below
};

struct ExposureReport {
  UnitSystem units = UnitSystem::metric;
  std::optional<ExposureValueRow> light;
  Exposure test;
  Exposure shot;
  ExposureField solved = ExposureField::shutterSpeed;
};

/// The words of what can be solved for.
inline constexpr Word<ExposureField> kExposureWords[] = {{ExposureField::aperture, "aperture"},
                                                         {ExposureField::shutterSpeed, "shutter"},
                                                         {ExposureField::iso, "iso"},
                                                         {ExposureField::filter, "filter"}};

/// What was given is kept in the session.  Throws InputError for a light that is none, for
/// what makes no sense together, and for what no photograph gives.
ExposureReport answer(const ExposureQuestion& question, CalculatorSession& session);

/// Of the neutral density filters that are sold, the few that come nearest to `stops` behind
/// each other: as few as come within a sixth of a stop, else three at most.  Empty for none.
std::vector<CameraFilter> nearestStack(double stops);

Readout readout(const ExposureReport& report);
Json json(const ExposureReport& report);

/// A row of the table of lights with the test shot that it stands for.
struct Light {
  std::size_t number;  ///< from 1, through all sections
  ExposureValueRow row;
  Exposure shot;  ///< at f/8 and ISO 100
};

struct LightSection {
  std::string title;
  std::vector<Light> lights;
};

struct LightTableQuestion {};
struct LightTableReport {
  std::vector<LightSection> sections;
};

LightTableReport answer(const LightTableQuestion& question, CalculatorSession& session);

Json json(const LightTableReport& report);

/// "1/125s", of the shot.
std::string shutterSpeedText(const Light& light);

}  // namespace zenivo
