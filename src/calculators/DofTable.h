// Depth of field for all distances and apertures.

#pragma once

#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/TablePosition.h"
#include "calculators/models/Dof.h"

namespace zenivo {

/// What the cells of the table show, by its number in the settings.
enum class DofTableType { nearFar = 0, totalDof = 1 };

/// The first row holds the hyperfocal distances, the others are subject distances;
/// columns are stops.  A cell is computed when it is asked for.
class DofTable : public CameraCalculator {
 public:
  struct Cell {
    float nearLimit;  ///< metres; below 0 means infinity, here and below
    float farLimit;
    float depthOfField;
  };

  explicit DofTable(const CalculatorEnvironment& environment);

  /// Takes camera, lens, ladders, units and position anew.
  void load();
  void save() const;

  /// The distances of the rows from the second on, in metres: round ones in the units
  /// in force.
  static std::vector<float> standardSubjectDistances(UnitSystem units);

  const std::vector<float>& subjectDistances() const { return distances_; }
  const std::vector<Aperture>& stops() const { return stops_; }
  std::size_t rowCount() const { return distances_.size() + 1; }

  DofTableType tableType() const { return type_; }
  void setTableType(DofTableType type) { type_ = type; }

  /// The table's own lens.  That of a camera which fixes it cannot be changed.
  LensInput lens() const { return lensOf(dof_); }
  EditResult setLens(const LensInput& lens);

  /// REQUIRES: a column of the table.
  float hyperfocal(std::size_t column);
  /// REQUIRES: a row from the second on (row 1 is the first distance) and a column of
  /// the table.
  Cell cell(std::size_t row, std::size_t column);

  /// The cell in the units in force, without their name: near and far limit as
  /// "2.5 – 4.1", or the depth.
  std::string cellText(std::size_t row, std::size_t column);

  /// What the cells show, and the unit: "Near and far limit (m)".
  std::string title() const;
  std::string rowHeader(std::size_t row) const;
  std::string columnHeader(std::size_t column) const;

  const TablePosition& position() const { return position_; }
  void setPosition(const TablePosition& position) { position_ = position; }

 private:
  Dof dof_;
  DofTableType type_ = DofTableType::nearFar;
  std::vector<float> distances_;
  std::vector<Aperture> stops_;
  TablePosition position_;
};

}  // namespace zenivo
