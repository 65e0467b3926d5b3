#include "answers/calculators/DepthTables.h"

#include <fmt/format.h>

#include <set>

#include "answers/common/CameraJson.h"
#include "calculators/DepthTables.h"
#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"

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

/// The focal lengths that are asked for, ascending; those of the table for none.
std::vector<float> focalLengthsOf(const HyperfocalQuestion& question, const HyperfocalTable& table,
                                  const Setup& setup) {
  if (question.focalLengths.empty()) return table.focalLengths();
  std::set<float> lengths;
  for (const float typed : question.focalLengths) {
    const float metres = changed({}, {typed, {}, {}}, setup).focalLength;
    const bool isOther = setup.camera.isFixedFocalLength() && metres != table.focalLengths()[0];
    if (isOther) expectTaken(cannotChangeFocalLength());
    lengths.insert(metres);
  }
  return {lengths.begin(), lengths.end()};
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
  if (question.coc) table.setCircleOfConfusion(*question.coc);
  table.save();
  DofTableReport report{
      setup, question.coc.value_or(setup.camera.coc), table.lens(), table.tableType(), {}, {}, {}};
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
          {"rows", std::move(rows)},
          {"circleOfConfusion", numberJson(report.coc)}};
}

HyperfocalReport answer(const HyperfocalQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  HyperfocalTable table(session.environment());
  table.load();
  table.save();
  if (question.coc) table.setCircleOfConfusion(*question.coc);
  const Places columns = columnsOf(question.stops, table.stops());
  HyperfocalReport report{setup, question.coc.value_or(setup.camera.coc), {}, {}};
  for (const std::size_t column : columns) report.stops.push_back(table.stops()[column]);
  for (const float focalLength : focalLengthsOf(question, table, setup)) {
    report.rows.push_back({focalLength, {}});
    for (const std::size_t column : columns) {
      report.rows.back().hyperfocals.push_back(table.hyperfocal(focalLength, column));
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
          {"rows", std::move(rows)},
          {"circleOfConfusion", numberJson(report.coc)}};
}

}  // namespace zenivo
