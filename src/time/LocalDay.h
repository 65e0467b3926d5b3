// A day of the observer's zone.

#pragma once

#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

/// A local day: its midnight (the moment after the gap where a clock change skips it),
/// the same as mjd, and deltaT then.
struct LocalDay {
  explicit LocalDay(Date midnight);

  /// The one in which a moment falls.
  static LocalDay of(Date moment, const Calendar& calendar);

  /// That of a midnight `days` later, counted on the calendar.
  LocalDay dayAfter(int days, const Calendar& calendar) const;

  Date date;
  double mjdAt0;
  double deltaT;
};

}  // namespace zenivo
