// Perigees and apogees of the Moon.

#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "time/PtDateTime.h"

namespace zenivo {

// Type codes of an apsis.
inline constexpr std::int32_t kApogee = 1;
inline constexpr std::int32_t kPerigee = 2;

/// An apsis of the Moon's orbit as the series gives it.
struct PtApogeePerigee {
  std::int32_t type = 0;  ///< kApogee or kPerigee
  PtDateTime date;
  double distance = 0;  ///< kilometres between the centres of Earth and Moon
};

/// What makes a distance of the Moon worth telling.
enum class MoonDistanceType { none = 0, apogee = kApogee, perigee = kPerigee, supermoon = 3 };

/// A distance of the Moon and its moment.
struct MoonDistance {
  MoonDistanceType type = MoonDistanceType::none;
  double distance = 0;  ///< kilometres
  double mjd = 0;
  Date date;  ///< the moment, down to the second
};

/// The type that a code of PtApogeePerigee stands for; none for any other.
MoonDistanceType moonDistanceFromDistanceType(std::int32_t code);

/// The localised name of a type, for example "Perigee"; empty for none.
std::string nameForType(MoonDistanceType type);

/// The apsis number `k`: a perigee where k is whole (0 is that of 1999 December
/// 22), the apogee after it where k ends in .5.  No other fraction has a meaning.
/// The dynamical time of the series is given as if it were Universal Time.
/// Error: apogees 4 minutes and 8 kilometres, perigees 36 minutes (5 typically) and 13
/// kilometres (1895 to 2105, against the full lunar theory).
/// Special cases: a fraction other than 0 and .5 is taken for an apogee.
/// Source: Meeus, Astronomical Algorithms, chapter 50, with the arguments of its
/// first edition.
PtApogeePerigee moonApsis(double k);

/// The apsides of a year, a month, or a day of the calendar's time zone, in time
/// order.  None for years outside -4712 to 6000.
std::vector<MoonDistance> apogeePerigeesForYear(std::int64_t year, const Calendar& calendar);
std::vector<MoonDistance> apogeePerigeesForYear(std::int64_t year, int andMonth,
                                                const Calendar& calendar);
std::vector<MoonDistance> apogeePerigeesForDate(Date date, const Calendar& calendar);

/// Those of the apsides of `year` and of the months around it that
/// `compareFunc` accepts.
std::vector<MoonDistance> calculateApogeePerigeesForYear(
    std::int64_t year, const std::function<bool(const MoonDistance&)>& compareFunc);

}  // namespace zenivo
