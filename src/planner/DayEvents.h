// The Sun's and the Moon's events of yesterday, today and tomorrow.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Date.h"
#include "map/lines/GeodesicCurveMapManager.h"
#include "planner/MonthPhases.h"
#include "planner/MoonEvent.h"
#include "planner/SkyAtMoment.h"
#include "planner/SunEvent.h"
#include "planner/TimeIntervalEventSorter.h"
#include "planner/Where.h"
#include "time/LocalDay.h"

namespace zenivo {

enum class PlannerBody { sun, moon };

/// Of which bodies the days hold a path.
struct DayPaths {
  bool sun = false;
  bool moon = false;
};

/// Keeps three local days around a moment.  After any sequence of moves they are those that
/// a search for this place, calendar and day alone would give.
class DayEvents {
 public:
  static constexpr std::size_t kYesterday = 0;
  static constexpr std::size_t kToday = 1;
  static constexpr std::size_t kTomorrow = 2;

  /// Searches with these bodies, which it moves to the place, and leaves them anywhere.
  DayEvents(ephemeris::PtSun& sun, ephemeris::PtMoon& moon) : sunBody_(sun), moonBody_(moon) {}

  /// Searches only the days that are not there yet: one when the moment moved to the day
  /// before or after.  True when there was one.
  bool moveTo(const Where& where, Date moment, const MonthPhases& phases, DayPaths paths);

  /// Drops all three days.
  void clear();
  bool isEmpty() const { return sun_.empty(); }

  /// Three days, or none.
  const std::vector<SunEvent>& sun() const { return sun_; }
  const std::vector<MoonEvent>& moon() const { return moon_; }
  /// Today's events in time order.
  const TimeIntervalEventSorter& sorter() const { return sorter_; }

  /// Takes the Moon's illumination, and its phase between two principal ones, for today
  /// from the sky at a moment of today.
  void takePhaseOfMoment(const SkyAtMoment& sky);

  void drawPaths(DayPaths paths);
  void removePath(PlannerBody body);

  /// Makes the lines towards rise and set, with the points of today's; none when one of the
  /// two is nullptr.
  void drawLines(GeodesicCurveMapManager* geodesics, const Coordinate* from);

 private:
  template <class Shift>
  void shift(Shift shiftArray);
  void search(const LocalDay& day, std::size_t slot, const MonthPhases& phases, DayPaths paths);
  void forgetPhaseOfMoment();

  ephemeris::PtSun& sunBody_;
  ephemeris::PtMoon& moonBody_;
  Where where_{{}, Calendar(TimeZone())};
  std::vector<SunEvent> sun_;
  std::vector<MoonEvent> moon_;
  TimeIntervalEventSorter sorter_;
};

}  // namespace zenivo
