#include "commands/events/MeteorReport.h"

#include <algorithm>
#include <stdexcept>

#include "commands/events/ShowerFinder.h"
#include "foundation/MainQueue.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

LocationInfoData dataFor(const MeteorQuestion& question) {
  LocationInfoData data{question.moment, std::nullopt, question.zone};
  if (question.scene) data.location = question.scene->location;
  return data;
}

void expectRead(const MeteorShowers& catalogue) {
  if (!catalogue.showers().empty()) return;
  throw std::runtime_error("the list of meteor showers cannot be read");
}

std::int64_t idOfShower(std::string_view name) {
  const MeteorShowers catalogue(std::nullopt);
  expectRead(catalogue);
  return findShower(catalogue, name)->meteorId;
}

/// The day in whose evening the night begins.
Date eveningOf(const MeteorShowerManager& manager) {
  const bool isLastNight = manager.currentMjdDate() < manager.meteorMjdPeakThreshold();
  return isLastNight ? dateByAddingNumberOfDays(manager.currentDate(), -1, manager.calendar())
                     : manager.currentDate();
}

ListedShower listed(const MeteorShower& shower, const MeteorShowerActivityPeriod& period,
                    const MeteorShowerManager& manager) {
  return {.shower = shower,
          .period = period,
          .isActive = shower.isActiveAtDate(eveningOf(manager)),
          .isPeakKnown = manager.location().has_value()};
}

/// Reads off the night, moves to its best moment if that is asked about, and reads off
/// what holds there.
MeteorNightReport lookAtNight(const MeteorQuestion& question, MeteorShowerManager& manager) {
  MeteorNightReport now;
  now.mjd = manager.currentMjdDate();
  if (!manager.location()) return now;
  now.tonight = manager.maxPeakInfo();
  now.night = calculateMjdRateStart(manager.currentMjdDate(), manager.daysInfo());
  if (question.isNight && drawEventAtMjd(now.tonight.mjd)) {
    manager.jumpToMjdDate(now.tonight.mjd);
  }
  manager.calculateRealTimeData();
  now.mjd = manager.currentMjdDate();
  now.rate = static_cast<double>(manager.currentMeteorRate());
  now.limitingMagnitude = manager.limitingMagnitude();
  now.moonElevation = manager.moonPosition().elevation_;
  now.moonIllumination = static_cast<double>(manager.moonPhase().phaseIllumination);
  return now;
}

/// The day's highest rate.
ShowerDay dayWithBest(const MeteorDayInfoData& info) {
  ShowerDay day{.info = info, .best = {}};
  const auto best =
      std::ranges::max_element(info.elevationsAndRates, {}, &MeteorGraphInfoAtMjd::rate);
  if (best != info.elevationsAndRates.end()) day.best = *best;
  return day;
}

struct PeakProgress : MeteorShowerManagerDelegate {
  explicit PeakProgress(std::size_t showers) : total(static_cast<double>(showers)) {}

  void didUpdateShowersPeaks() override { ++done; }
  void didFinishShowersPeaks() override { isFinished = true; }

  const double total;
  double done = 0;
  bool isFinished = false;
};

/// False when interrupted.
bool computePeaksOfYear(MeteorShowerManager& manager, std::int64_t year, const GoOn& goOn) {
  const auto delegate = std::make_shared<PeakProgress>(manager.meteorShowers().showers().size());
  manager.setDelegate(delegate);
  manager.calculateMeteorShowerActivitesForYear(year, true);
  if (!manager.location()) return true;  // nothing to be computed
  mainQueue().runUntil(
      [&] { return delegate->isFinished || !goOn(delegate->done / delegate->total); });
  return delegate->isFinished;
}

}  // namespace

ActiveShowersReport reportActiveShowers(const MeteorQuestion& question) {
  MeteorShowerManager manager(dataFor(question), nullptr);
  expectRead(manager.meteorShowers());
  ActiveShowersReport report{.question = question,
                             .moonlessHours = static_cast<double>(manager.moonlessHours())};
  const Date evening = eveningOf(manager);
  for (const auto& shower : manager.activeAndUpcomingShowers()) {
    // One that ended with last evening is still of this night.
    manager.calculatePeakDateForMeteorShower(*shower, evening);
    const auto* period = shower->currentOrNextActivityPeriodFromDate(evening);
    if (period != nullptr) report.showers.push_back(listed(*shower, *period, manager));
  }
  report.now = lookAtNight(question, manager);
  for (ListedShower& entry : report.showers) {
    entry.shower = *manager.meteorShowerWithId(entry.shower.meteorId);
  }
  return report;
}

ShowerReport reportShower(const MeteorQuestion& question, std::string_view name) {
  const std::int64_t id = idOfShower(name);
  MeteorShowerManager manager(dataFor(question), id, false, nullptr);
  manager.calculateCurrentLocationShowersPeaks(false);
  manager.calculateTonightMaxRatePeak();
  const auto shower = manager.meteorShowerWithId(id);
  const Date evening = eveningOf(manager);
  manager.calculatePeakDateForMeteorShower(*shower, evening);
  const MeteorShowerActivityPeriod* period = shower->currentOrNextActivityPeriodFromDate(evening);
  ShowerReport report{.question = question, .shower = listed(*shower, *period, manager)};
  if (period == &shower->activityPeriods.front()) {
    report.nextPeriod = shower->activityPeriods.back();
  }
  report.now = lookAtNight(question, manager);
  if (report.now.tonight.rate == 0) report.now.tonight.bestMeteorShower = nullptr;
  report.shower.shower = *shower;
  if (!manager.location()) return report;

  manager.jumpToMjdDate(report.shower.period.bestKnownPeakMjd());
  manager.calculateRealTimeData();
  report.peakRadiant = {.azimuth_ = shower->azimuth, .elevation_ = shower->elevation};
  report.peakNight = calculateMjdRateStart(manager.currentMjdDate(), manager.daysInfo());
  std::ranges::transform(manager.daysInfo(), report.days.begin(), dayWithBest);
  return report;
}

ShowerCalendarReport reportShowerCalendar(const MeteorQuestion& question, std::int64_t year,
                                          const GoOn& goOn) {
  MeteorShowerManager manager(dataFor(question), true, nullptr);
  ShowerCalendarReport report{.question = question, .year = year};
  expectRead(manager.meteorShowers());
  report.isComplete = computePeaksOfYear(manager, year, goOn);
  for (const int showerClass : {kMajorShower, kMinorShower, kVariableShower, kWeakShower}) {
    const auto first = static_cast<std::ptrdiff_t>(report.showers.size());
    for (const auto& shower : manager.meteorShowers().showersOfClass(showerClass)) {
      const auto* period = std::as_const(*shower).activityPeriodForYear(year);
      if (period == nullptr) continue;
      ListedShower entry = listed(*shower, *period, manager);
      entry.isPeakKnown = manager.location() && (report.isComplete || period->hasRealPeak());
      report.showers.push_back(std::move(entry));
    }
    std::stable_sort(report.showers.begin() + first, report.showers.end(),
                     [](const ListedShower& lhs, const ListedShower& rhs) {
                       return lhs.period.bestKnownPeakMjd() < rhs.period.bestKnownPeakMjd();
                     });
  }
  return report;
}

}  // namespace zenivo::cli
