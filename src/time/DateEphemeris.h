// Platform dates as the ephemeris reads them: what ties a Date to an mjd, to
// the civil date records and to the local days of the observer's time zone.

#pragma once

#include <cstdint>
#include <string>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"
#include "time/PtDateTime.h"

namespace zenivo {

/// The calendar that the screens of the process share: the device's, fetched once and
/// kept for the life of the process, in the zone last set.  A copy; may be called and
/// set from any thread.  Nothing below reckons by it unless it is handed in.
Calendar cachedCalendar();
void setCachedCalendarTimeZone(const TimeZone& zone);

/// The calendar in the zone "GMT".
const Calendar& gmtCachedCalendar();

// Records, mjd values and dates.  All in Universal Time.  Of what is not a number follows
// nothing that is one: a date, an mjd, minutes that are not a number.

/// With seconds: down to the whole second.  Without: the nearest whole minute.
Date dateWithPtDateTime(const PtDateTime& record, bool withSeconds = false);

/// Down to the whole second.
PtDateTime ptDateTimeForDate(Date date);

/// Without seconds the date stands on a whole minute.
Date dateFromModifiedJulianDay(double mjd, bool withSeconds = false);

/// The moment of a real mjd, without rounding.
Date dateOfMjd(double mjd);

/// Fractions of a second are lost.
double modifiedJulianDay(Date date);

/// The nearest whole minute to `mjd`, seconds since the reference date.  Without
/// meaning for a sentinel: test with drawEventAtMjd first.
double mjdToTimeInterval(double mjd);

// Local days, in the zone of the calendar.

/// 00:00:00, 12:00:00 and 23:59:59 of the date's local day.  A time that a clock
/// change skips is the moment after the gap.
Date dateWithStartDateTime(Date date, const Calendar& calendar);
Date dateWithNoonDateTime(Date date, const Calendar& calendar);
Date dateWithEndDateTime(Date date, const Calendar& calendar);

/// Adds local calendar days and keeps the wall-clock time.
Date dateByAddingNumberOfDays(Date date, int days, const Calendar& calendar);

/// 00:00:00 of January 1.
Date firstDayOfYear(std::int64_t year, const Calendar& calendar);

/// The next whole hour on the clock.
Date nextMainHour(Date date, const Calendar& calendar);
/// The same hour with minute 0; the seconds stay as they are.
Date previousMainHour(Date date, const Calendar& calendar);

bool isDateSameDayAsDate(Date date, Date other, const Calendar& calendar);

// Components of the local date and time.

std::int64_t yearValue(Date date, const Calendar& calendar);
int monthValue(Date date, const Calendar& calendar);
int dayValue(Date date, const Calendar& calendar);
int hourValue(Date date, const Calendar& calendar);
int minuteValue(Date date, const Calendar& calendar);

/// hour + minute / 24.  The divisor is what the readers of this value expect.
float floatHour(Date date, const Calendar& calendar);
/// 0 up to 1, down to the whole second.
double timeAsFractionOfDay(Date date, const Calendar& calendar);

/// 1 (Sunday) to 7, and 28 to 31; both in the device's zone, not the observer's.
int weekday(Date date);
int numberOfDaysInMonth(Date date);

/// The short name of weekday(date) for the user, from the table "Common".
std::string weekdayAbbreviation(Date date);

// Comparisons.

/// True only strictly after `first` and strictly before `second`.
bool dateIsBetween(Date date, Date first, Date second);

/// The date itself when it lies between the two, otherwise the nearer bound, the
/// second on a tie.
Date closestDateFromDate(Date first, Date second, Date ofDate);

/// The label of the zone at that moment: "GMT+2", "GMT+5:30", "GMT-3:-30" (west
/// of Greenwich minutes carry their sign, too).
std::string gmtOffsetStringValueForDate(const TimeZone& zone, Date date);

/// Hours from one event to another; either may be a sentinel.  A start of
/// kAlwaysAbove gives 24, another sentinel there 0; an end of kAlwaysAbove or
/// kNotThisDay counts to the end of the start's local day.  An end of
/// kAlwaysBelow has no meaning: do not ask.
float hoursBetweenStartMjd(double start, double andEndMjd, const Calendar& calendar);

}  // namespace zenivo
