#include "calculators/TimelapseIntervals.h"

#include "calculators/ResourceRow.h"
#include "foundation/Bundle.h"
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
  for (const PropertyList& entry : *list->array()) {
    TimelapseIntervalRow row{textForKey(entry, "Event"), textForKey(entry, "Interval"),
                             textForKey(entry, "EventDuration"),
                             numberForKey(entry, "IntervalValue"),
                             numberForKey(entry, "EventDurationValue")};
    if (row.intervalValue > 0 && row.eventDurationValue > 0) rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace zenivo
