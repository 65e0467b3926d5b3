#include "meteors/MeteorShowers.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "foundation/AtomicFile.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// A stable sort that, unlike the library's, is defined for a relation that is not
/// transitive.
template <class Precedes>
void insertionSort(MeteorShowers::List& list, Precedes precedes) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    for (std::size_t j = i; j > 0 && precedes(*list[j], *list[j - 1]); --j) {
      std::swap(list[j], list[j - 1]);
    }
  }
}

}  // namespace

MeteorShowers::MeteorShowers(const std::optional<ZVLocation>& location,
                             const std::filesystem::path& file)
    : location_(location) {
  const auto json = readFile(file, kMeteorShowerListMaximumBytes);
  if (!json) return;
  const auto items = meteorShowerItemsFromJson(*json);
  if (!items) return;
  for (const MeteorShowerJsonItem& item : *items) {
    const auto shower = std::make_shared<MeteorShower>(MeteorShowerFacts(item), location);
    showers_.push_back(shower);
    listOfClass(item.showerClass).push_back(shower);
  }
}

void MeteorShowers::setLocation(const std::optional<ZVLocation>& location) {
  location_ = location;
  for (const auto& shower : showers_) shower->setLocation(location);
}

const MeteorShowers::List& MeteorShowers::showersOfClass(int showerClass) const {
  switch (showerClass) {
    case kMajorShower:
      return majorShowers_;
    case kMinorShower:
      return minorShowers_;
    case kVariableShower:
      return variableShowers_;
    default:
      return weakShowers_;
  }
}

MeteorShowers::List& MeteorShowers::listOfClass(int showerClass) {
  return const_cast<List&>(showersOfClass(showerClass));
}

std::shared_ptr<MeteorShower> MeteorShowers::showerWithId(std::int64_t meteorId) const {
  const auto found =
      std::ranges::find(showers_, meteorId, [](const auto& shower) { return shower->meteorId; });
  return found == showers_.end() ? nullptr : *found;
}

void MeteorShowers::calculateMeteorShowersActivitiesWithYear(std::int64_t year,
                                                             const Calendar& calendar) {
  for (const auto& shower : showers_) shower->calculateActivitiesWithYear(year, calendar);
}

void MeteorShowers::refreshActiveMeteorShowersForMjd(double mjd) {
  const Date date = dateFromModifiedJulianDay(mjd);
  activeShowers_.clear();
  upcomingShowers_.clear();
  for (const auto& shower : showers_) {
    if (shower->isActiveAtDate(date)) {
      activeShowers_.push_back(shower);
    } else if (std::ranges::any_of(shower->activityPeriods,
                                   [&](const auto& period) { return period.isUpcoming(date); })) {
      upcomingShowers_.push_back(shower);
    }
  }
}

void MeteorShowers::sortActiveAndUpcomingShowersForMjd(double mjd) {
  const Date date = dateFromModifiedJulianDay(mjd);
  const auto precedes = [&](const MeteorShower& lhs, const MeteorShower& rhs) {
    return compareShowersWithLhs(lhs, rhs, date, mjd);
  };
  insertionSort(activeShowers_, precedes);
  insertionSort(upcomingShowers_, precedes);
}

void MeteorShowers::sortShowersForMjd(double mjd) {
  const Date date = dateFromModifiedJulianDay(mjd);
  const auto precedes = [&](const MeteorShower& lhs, const MeteorShower& rhs) {
    return compareShowersByPeakDateWithLhs(lhs, rhs, date);
  };
  for (List* list : {&majorShowers_, &minorShowers_, &variableShowers_, &weakShowers_}) {
    insertionSort(*list, precedes);
  }
}

bool MeteorShowers::compareShowersWithLhs(const MeteorShower& lhs, const MeteorShower& rhs,
                                          Date date, double mjdDate) {
  const bool lhsIsActive = lhs.isActiveAtDate(date);
  if (lhsIsActive != rhs.isActiveAtDate(date)) return lhsIsActive;
  const MeteorShowerActivityPeriod* left = lhs.closestActivityPeriodToDate(date);
  if (left == nullptr) return false;
  const MeteorShowerActivityPeriod* right = rhs.closestActivityPeriodToDate(date);
  if (right == nullptr) return true;
  if (left->realPeakDate && right->realPeakDate) {
    return std::abs(left->realPeakDate->timeIntervalSinceDate(date)) <
           std::abs(right->realPeakDate->timeIntervalSinceDate(date));
  }
  return std::abs(left->peakMjd - mjdDate) < std::abs(right->peakMjd - mjdDate);
}

bool MeteorShowers::compareShowersByPeakDateWithLhs(const MeteorShower& lhs,
                                                    const MeteorShower& rhs, Date date) {
  const MeteorShowerActivityPeriod* left = lhs.currentOrNextActivityPeriodFromDate(date);
  if (left == nullptr) return false;
  const MeteorShowerActivityPeriod* right = rhs.currentOrNextActivityPeriodFromDate(date);
  if (right == nullptr) return true;
  return left->bestKnownPeakMjd() < right->bestKnownPeakMjd();
}

void MeteorShowers::clearPeaksInfo() {
  for (const auto& shower : showers_) {
    for (MeteorShowerActivityPeriod& period : shower->activityPeriods) period.clearPeakInfo();
  }
}

}  // namespace zenivo
