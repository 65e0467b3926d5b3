// The list from which an eclipse is chosen.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "eclipses/EclipseRow.h"
#include "engine/PtPosition.h"
#include "foundation/UserDefaults.h"
#include "place/Coordinate.h"

namespace zenivo {

enum class EclipseColumn {
  date = 100,
  bodyKind = 101,
  globalType = 102,
  typeAtRedPin = 103,
};

/// One line of the list.
struct EclipseListItem {
  const EclipseRow* eclipse = nullptr;        ///< never null; owned by the selector
  std::int32_t eclipseTypeAtRedPosition = 0;  ///< display code as seen from the main pin
};

/// The place of the main pin in the settings; nullopt when none is stored.
std::optional<Coordinate> storedRedPin(const UserDefaults& userDefaults);

/// The catalogue, sorted by one column at a time; at first by date, ascending.
class EclipseSelector {
 public:
  /// `redPin` is the user's main pin, if there is one; its altitude is taken as 0.
  /// `currentSelection` is the name of the eclipse chosen now.
  EclipseSelector(std::vector<EclipseRow> eclipses, const std::optional<Coordinate>& redPin,
                  std::string currentSelection = {});
  EclipseSelector(const EclipseSelector&) = delete;
  EclipseSelector& operator=(const EclipseSelector&) = delete;

  const std::vector<EclipseListItem>& items() const { return items_; }
  EclipseColumn column() const { return column_; }
  bool isAscending() const { return isAscending_; }

  /// A tap on a column's head: the column in use turns round, another one sorts
  /// ascending.  Equal lines follow their date, in the same direction.
  void selectColumn(EclipseColumn column);

  /// The line of the current selection; nullopt when it names no eclipse.
  std::optional<std::size_t> indexForSelectedCell() const;

 private:
  void sort();

  const std::vector<EclipseRow> eclipses_;
  const std::string currentSelection_;
  std::vector<EclipseListItem> items_;
  EclipseColumn column_ = EclipseColumn::date;
  bool isAscending_ = true;
};

/// The type of an eclipse as seen from a place, a display code; 0 for one without
/// a row of its kind.
std::int32_t eclipseTypeAt(const PtPosition& observer, const EclipseRow& eclipse);

/// The rank of the line in the column of global types, or in that of the types at
/// the main pin: solar before lunar, eclipses that are not seen last.
int valueForEclipseType(const EclipseListItem& item, bool forRedPin);

}  // namespace zenivo
