// The Moon's principal phases of a local month.

#pragma once

#include <optional>
#include <vector>

#include "engine/MoonPhases.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "time/LocalDay.h"
#include "time/PtDateTime.h"

namespace zenivo {

/// Lists the phases from the first of the month on in which a moment falls.
class MonthPhases {
 public:
  /// Fills the list when the month is another than before.
  void moveTo(Date moment, const Calendar& calendar);

  const std::vector<PtMoonPhaseWithDate>& phases() const { return phases_; }
  /// Empties the list until the month changes.
  void clear() { phases_.clear(); }

  /// The phase of a local day of any month.
  std::optional<PtMoonPhaseWithDate> ofDay(const LocalDay& day, const Calendar& calendar) const;

 private:
  std::optional<PtDateTime> start_;
  std::vector<PtMoonPhaseWithDate> phases_;
};

}  // namespace zenivo
