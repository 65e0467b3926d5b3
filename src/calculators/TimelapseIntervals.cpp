#include "calculators/TimelapseIntervals.h"

#include "foundation/Bundle.h"
#include "foundation/KeyedArchive.h"
#include "foundation/LocalizedString.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

constexpr const char* kTable = "TimelapseIntervals";

}  // namespace

std::string TimelapseIntervalRow::eventText() const {
  return localizedString(event, kTable);
}

std::string TimelapseIntervalRow::intervalText() const {
  return localizedString(interval, kTable);
}

std::string TimelapseIntervalRow::eventDurationText() const {
  return localizedString(eventDuration, kTable);
}

std::vector<TimelapseIntervalRow> timelapseIntervals() {
  return timelapseIntervals(resourcePath("timelapseIntervals.plist"));
}

std::vector<TimelapseIntervalRow> timelapseIntervals(const std::filesystem::path& file) {
  std::vector<TimelapseIntervalRow> rows;
  const auto list = readPropertyListFile(file);
  if (!list || list->array() == nullptr) return rows;
  for (const PropertyList& each : *list->array()) {
    const KeyedUnarchiver entry(each);
    TimelapseIntervalRow row{entry.decodeString("Event"), entry.decodeString("Interval"),
                             entry.decodeString("EventDuration"),
                             entry.decodeDouble("IntervalValue"),
                             entry.decodeDouble("EventDurationValue")};
    if (row.intervalValue > 0 && row.eventDurationValue > 0) rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace zenivo
