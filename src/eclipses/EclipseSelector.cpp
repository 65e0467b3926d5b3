#include "eclipses/EclipseSelector.h"

#include <algorithm>
#include <utility>

#include "app/settings/SettingsKeys.h"
#include "eclipses/EclipseType.h"
#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "place/ZVObserver.h"

namespace zenivo {
namespace {

// First by what the column shows, then by date.
std::pair<int, double> sortKey(const EclipseListItem& item, EclipseColumn column) {
  const double date = item.eclipse->mjd;
  switch (column) {
    case EclipseColumn::bodyKind:
      return {item.eclipse->eclipseType, date};
    case EclipseColumn::globalType:
      return {valueForEclipseType(item, false), date};
    case EclipseColumn::typeAtRedPin:
      return {valueForEclipseType(item, true), date};
    case EclipseColumn::date:
      break;
  }
  return {0, date};
}

}  // namespace

std::int32_t eclipseTypeAt(const PtPosition& observer, const EclipseRow& eclipse) {
  if (eclipse.isSolarEclipse()) {
    if (!eclipse.solarEclipse) return 0;
    return sunEclipseType(observer, elementVector(*eclipse.solarEclipse, eclipse.mjd));
  }
  if (!eclipse.lunarEclipse) return 0;
  return moonEclipseType(observer, elementVector(*eclipse.lunarEclipse, eclipse.mjd));
}

int valueForEclipseType(const EclipseListItem& item, bool forRedPin) {
  const int code = forRedPin ? item.eclipseTypeAtRedPosition : eclipseTypeAsInt(*item.eclipse);
  if (item.eclipse->isSolarEclipse()) return code >= 1 && code <= 4 ? code : 8;
  return code >= 1 && code <= 3 ? 4 + code : 9;
}

std::optional<Coordinate> storedRedPin(const UserDefaults& userDefaults) {
  const auto archive = userDefaults.objectForKey(settings::planner_observer);
  const auto observer = archive ? ZVObserver::fromArchive(*archive) : std::nullopt;
  if (!observer) return std::nullopt;
  return observer->coordinate;
}

EclipseSelector::EclipseSelector(std::vector<EclipseRow> eclipses,
                                 const std::optional<Coordinate>& redPin,
                                 std::string currentSelection)
    : eclipses_(std::move(eclipses)), currentSelection_(std::move(currentSelection)) {
  items_.reserve(eclipses_.size());
  for (const EclipseRow& eclipse : eclipses_) items_.push_back({&eclipse, 0});
  if (redPin) {
    const PtPosition atSeaLevel(redPin->latitude, redPin->longitude);
    for (EclipseListItem& item : items_) {
      item.eclipseTypeAtRedPosition = eclipseTypeAt(atSeaLevel, *item.eclipse);
    }
  }
  sort();
}

void EclipseSelector::selectColumn(EclipseColumn column) {
  isAscending_ = column == column_ ? !isAscending_ : true;
  column_ = column;
  sort();
}

std::optional<std::size_t> EclipseSelector::indexForSelectedCell() const {
  const auto found = std::find_if(items_.begin(), items_.end(), [this](const auto& item) {
    return item.eclipse->name == currentSelection_;
  });
  if (found == items_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - items_.begin());
}

void EclipseSelector::sort() {
  std::sort(items_.begin(), items_.end(), [this](const auto& a, const auto& b) {
    const auto keyOfA = sortKey(a, column_);
    const auto keyOfB = sortKey(b, column_);
    return isAscending_ ? keyOfA < keyOfB : keyOfB < keyOfA;
  });
}

}  // namespace zenivo
