// Depth of field and hyperfocal distances for many stops.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "answers/calculators/CameraAndLens.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/DepthTables.h"

namespace zenivo {

/// The stops that a table shows: the nearest to each given, or all, or without either the full
/// stops from f/2.8 to f/16.
struct StopsQuestion {
  std::vector<float> fstops;
  bool all = false;
};

/// Values that are missing stay as they are kept.
struct DofTableQuestion {
  std::optional<std::string> camera;
  LensQuestion lens;  ///< of the table, which has one of its own
  StopsQuestion stops;
  std::optional<DofTableType> show;
  std::optional<float> coc = {};  ///< millimetres, in place of the camera's, here and below
};

struct DofTableReport {
  /// REQUIRES of all three: one for each stop.
  struct Row {
    float distance;  ///< of the subject, metres
    std::vector<DofTable::Cell> cells;
  };

  Setup setup;
  float coc = 0;  ///< millimetres
  LensInput lens;
  DofTableType show = DofTableType::nearFar;
  std::vector<Aperture> stops;     ///< ascending
  std::vector<float> hyperfocals;  ///< metres
  std::vector<Row> rows;           ///< by ascending distance
};

/// What was given is kept in the session, here and below.  Throws InputError for a lens that
/// the camera fixes.
DofTableReport answer(const DofTableQuestion& question, CalculatorSession& session);

Json json(const DofTableReport& report);

/// What the cells show, and the unit: "Near and far limit (m)".
std::string titleOf(const DofTableReport& report);
/// A cell in the units in force, without their name: near and far limit as "2.5 – 4.1", or
/// the depth.
std::string cellText(const DofTableReport& report, const DofTable::Cell& cell);

struct HyperfocalQuestion {
  std::optional<std::string> camera;
  std::vector<float> focalLengths;  ///< metres, as the settings mean them; the ladder for none
  StopsQuestion stops;
  std::optional<float> coc = {};
};

struct HyperfocalReport {
  struct Row {
    float focalLength;               ///< metres
    std::vector<float> hyperfocals;  ///< metres, one for each stop
  };

  Setup setup;
  float coc = 0;                ///< millimetres
  std::vector<Aperture> stops;  ///< ascending
  std::vector<Row> rows;        ///< by ascending focal length
};

/// Throws InputError for a focal length that is not the camera's fixed one.
HyperfocalReport answer(const HyperfocalQuestion& question, CalculatorSession& session);

Json json(const HyperfocalReport& report);

}  // namespace zenivo
