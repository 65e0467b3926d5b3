// Hyperfocal distances for all focal lengths and apertures.

#pragma once

#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/TablePosition.h"
#include "calculators/models/Dof.h"

namespace zenivo {

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

  /// Metres.  REQUIRES: a row and a column of the table.
  float hyperfocal(std::size_t row, std::size_t column);
  std::string cellText(std::size_t row, std::size_t column);

  std::string rowHeader(std::size_t row) const;
  std::string columnHeader(std::size_t column) const;

  const TablePosition& position() const { return position_; }
  void setPosition(const TablePosition& position) { position_ = position; }

 private:
  Dof dof_;
  std::vector<float> focalLengths_;
  std::vector<Aperture> stops_;
  TablePosition position_;
};

}  // namespace zenivo
