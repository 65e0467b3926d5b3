// Depth of field and hyperfocal distances for all stops.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/Dof.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// The settings under which a table keeps its position.
struct TablePositionKeys {
  std::string_view offsetX;
  std::string_view offsetY;
  std::string_view selectedRow;
  std::string_view selectedCol;
};

/// The first column and row in view, with fractions of a cell, and the cell selected.
struct TablePosition {
  float offsetX = 0;
  float offsetY = 0;
  std::int64_t selectedRow = 0;
  std::int64_t selectedCol = 0;

  /// The stored position, brought into a table of that many rows and columns.
  static TablePosition load(const UserDefaults& defaults, const TablePositionKeys& keys, int rows,
                            int columns);
  void save(UserDefaults& defaults, const TablePositionKeys& keys) const;

  friend bool operator==(const TablePosition&, const TablePosition&) = default;
};

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

  /// Millimetres, in place of the camera's.
  void setCircleOfConfusion(float millimetres) { dof_.setCircleOfConfusion(millimetres); }

  /// REQUIRES: a column of the table.
  float hyperfocal(std::size_t column);
  /// REQUIRES: a row from the second on (row 1 is the first distance) and a column of
  /// the table.
  Cell cell(std::size_t row, std::size_t column);

  const TablePosition& position() const { return position_; }
  void setPosition(const TablePosition& position) { position_ = position; }

 private:
  Dof dof_;
  DofTableType type_ = DofTableType::nearFar;
  std::vector<float> distances_;
  std::vector<Aperture> stops_;
  TablePosition position_;
};

/// Rows are focal lengths, columns are stops.  A cell is computed when it is asked for.
class HyperfocalTable : public CameraCalculator {
 public:
  explicit HyperfocalTable(const CalculatorEnvironment& environment);

  /// Takes camera, ladders and position anew: a fixed lens has one row, a fixed
  /// aperture one column.
  void load();
  void save() const;

  const std::vector<float>& focalLengths() const { return focalLengths_; }
  const std::vector<Aperture>& stops() const { return stops_; }

  /// Millimetres, in place of the camera's.
  void setCircleOfConfusion(float millimetres) { dof_.setCircleOfConfusion(millimetres); }

  /// Metres, of any focal length in metres.  REQUIRES: a column of the table.
  float hyperfocal(float focalLength, std::size_t column);

  const TablePosition& position() const { return position_; }
  void setPosition(const TablePosition& position) { position_ = position; }

 private:
  Dof dof_;
  std::vector<float> focalLengths_;
  std::vector<Aperture> stops_;
  TablePosition position_;
};

}  // namespace zenivo
