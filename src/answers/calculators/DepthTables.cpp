#include "answers/calculators/DepthTables.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "answers/common/CameraJson.h"
#include "calculators/DepthTables.h"
#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"
#include "input/InputError.h"

namespace zenivo {
namespace {

using Places = std::vector<std::size_t>;

constexpr double kFullStops[] = {2.8, 4, 5.6, 8, 11, 16};

/// Places in `stops` of those that are asked for, ascending.
Places columnsOf(const StopsQuestion& question, const std::vector<Aperture>& stops) {
  std::set<std::size_t> chosen;
  const auto choose = [&](double fstop) {
    const auto& nearest = nearestElement(stops, fstop, &Aperture::fstop);
    chosen.insert(static_cast<std::size_t>(&nearest - stops.data()));
  };
  if (question.all) {
    for (std::size_t i = 0; i < stops.size(); ++i) chosen.insert(i);
  } else if (question.fstops.empty()) {
    for (const double fstop : kFullStops) choose(fstop);
  }
  for (const float fstop : question.fstops) choose(fstop);
  return {chosen.begin(), chosen.end()};
}

/// Places of the focal lengths that are asked for, ascending; all for none.
Places rowsOf(const std::vector<float>& wanted, const std::vector<float>& focalLengths) {
  constexpr float kTolerance = 0.00005F;
  std::set<std::size_t> chosen;
  for (std::size_t i = 0; i < focalLengths.size() && wanted.empty(); ++i) chosen.insert(i);
  for (const float metres : wanted) {
    const auto found = std::ranges::find_if(
        focalLengths, [&](float each) { return std::abs(each - metres) < kTolerance; });
    if (found == focalLengths.end()) {
      throw InputError(fmt::format("{} is not in the table; see zenivo dof --focal",
                                   CameraValuesFormatter::formatFocalLength(metres)));
    }
    chosen.insert(static_cast<std::size_t>(found - focalLengths.begin()));
  }
  return {chosen.begin(), chosen.end()};
}

Json distanceJson(float metres) {
  return inMetres(metres, "").value;
}

Json stopsJson(const std::vector<Aperture>& stops) {
  Json list = Json::array();
  for (const Aperture& stop : stops) {
    list.push_back(numberJson(static_cast<float>(stop.fstop)));
  }
  return list;
}

Json rowJson(const DofTableReport& report, const DofTableReport::Row& row) {
  Json cells = Json::array();
  for (const DofTable::Cell& cell : row.cells) {
    cells.push_back({{"near", distanceJson(cell.nearLimit)},
                     {"far", distanceJson(cell.farLimit)},
                     {"depth", distanceJson(cell.depthOfField)},
                     {"text", cellText(report, cell)}});
  }
  return {{"distance", distanceJson(row.distance)},
          {"text", report.setup.formatter().formatDistance(row.distance, false)},
          {"cells", std::move(cells)}};
}

}  // namespace

DofTableReport answer(const DofTableQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  DofTable table(session.environment());
  table.load();
  editLens(table, table.lens(), question.lens, setup);
  if (question.show) table.setTableType(*question.show);
  table.save();
  DofTableReport report{setup, table.lens(), table.tableType(), {}, {}, {}};
  const Places columns = columnsOf(question.stops, table.stops());
  for (const std::size_t column : columns) {
    report.stops.push_back(table.stops()[column]);
    report.hyperfocals.push_back(table.hyperfocal(column));
  }
  for (std::size_t row = 1; row < table.rowCount(); ++row) {
    report.rows.push_back({table.subjectDistances()[row - 1], {}});
    for (const std::size_t column : columns) {
      report.rows.back().cells.push_back(table.cell(row, column));
    }
  }
  return report;
}

std::string titleOf(const DofTableReport& report) {
  const bool isDepth = report.show == DofTableType::totalDof;
  const bool isImperial = report.setup.units == UnitSystem::imperial;
  return fmt::format("{} ({})",
                     calculatorText(isDepth ? "dof_table_total_dof" : "dof_table_near_far"),
                     commonText(isImperial ? "unit_abbr_ft" : "unit_abbr_m"));
}

std::string cellText(const DofTableReport& report, const DofTable::Cell& cell) {
  const CameraValuesFormatter formatter = report.setup.formatter();
  if (report.show == DofTableType::totalDof) {
    return formatter.formatDistance(cell.depthOfField, false);
  }
  return fmt::format("{} – {}", formatter.formatDistance(cell.nearLimit, false),
                     formatter.formatDistance(cell.farLimit, false));
}

Json json(const DofTableReport& report) {
  Json hyperfocals = Json::array();
  for (const float metres : report.hyperfocals) hyperfocals.push_back(distanceJson(metres));
  Json rows = Json::array();
  for (const DofTableReport::Row& row : report.rows) rows.push_back(rowJson(report, row));
  return {{"camera", cameraJson(report.setup.camera)},
          {"units", nameOf(report.setup.units)},
          {"focalLength", numberJson(report.lens.focalLength * 1000)},
          {"teleconverter", numberJson(report.lens.teleconverter())},
          {"show", report.show == DofTableType::totalDof ? "depth" : "limits"},
          {"apertures", stopsJson(report.stops)},
          {"hyperfocal", std::move(hyperfocals)},
          {"rows", std::move(rows)}};
}

HyperfocalReport answer(const HyperfocalQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  HyperfocalTable table(session.environment());
  table.load();
  table.save();
  const Places rows = rowsOf(question.focalLengths, table.focalLengths());
  const Places columns = columnsOf(question.stops, table.stops());
  HyperfocalReport report{setup, {}, {}};
  for (const std::size_t column : columns) report.stops.push_back(table.stops()[column]);
  for (const std::size_t row : rows) {
    report.rows.push_back({table.focalLengths()[row], {}});
    for (const std::size_t column : columns) {
      report.rows.back().hyperfocals.push_back(table.hyperfocal(row, column));
    }
  }
  return report;
}

Json json(const HyperfocalReport& report) {
  const CameraValuesFormatter formatter = report.setup.formatter();
  Json rows = Json::array();
  for (const auto& [focalLength, hyperfocals] : report.rows) {
    Json cells = Json::array();
    for (const float metres : hyperfocals) {
      cells.push_back(json(inMetres(metres, formatter.formatDistance(metres))));
    }
    rows.push_back({{"focalLength", numberJson(focalLength * 1000)},
                    {"text", CameraValuesFormatter::formatFocalLength(focalLength)},
                    {"cells", std::move(cells)}});
  }
  return {{"camera", cameraJson(report.setup.camera)},
          {"units", nameOf(report.setup.units)},
          {"apertures", stopsJson(report.stops)},
          {"rows", std::move(rows)}};
}

}  // namespace zenivo
