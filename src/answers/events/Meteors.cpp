#include "answers/events/Meteors.h"

#include <algorithm>
#include <stdexcept>
#include <thread>
#include <utility>

#include "answers/events/ShowerFinder.h"
#include "meteors/RealPeak.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

LocationInfoData dataFor(const MeteorQuestion& question) {
  LocationInfoData data{question.moment, std::nullopt, question.nightZone};
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

/// The showers with their returns of a year.
MeteorShowers showersOfYear(const MeteorQuestion& question, std::int64_t year) {
  MeteorShowers showers(dataFor(question).location);
  expectRead(showers);
  showers.calculateMeteorShowersActivitiesWithYear(year, Calendar(question.nightZone));
  return showers;
}

/// The real peaks of a year; false when goOn stopped the search.
bool computePeaks(MeteorShowers& showers, std::int64_t year, const Calendar& calendar,
                  const GoOn& goOn) {
  if (!showers.location()) return true;  // nothing to be computed
  std::vector<RealPeakTask> tasks;
  for (const auto& shower : showers.showers()) {
    const auto* period = std::as_const(*shower).activityPeriodForYear(year);
    if (period == nullptr) continue;
    const MeteorShowerFacts& facts = *shower;
    tasks.push_back({.shower = MeteorShower(facts, showers.location()), .periods = {*period}});
  }
  const double total = static_cast<double>(tasks.size());
  double done = 0;
  bool isComplete = goOn(0);
  if (!isComplete) return false;
  PeakSamples samples(*showers.location(), calendar);
  const int threads = std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
  calculateRealPeaks(std::move(tasks), samples, threads, [&](const RealPeakTask& task) {
    const auto shower = showers.showerWithId(task.shower.meteorId);
    for (const auto& period : task.periods) {
      period.copyToActivityPeriod(*shower->activityPeriodForYear(period.year));
    }
    return isComplete = goOn(++done / total);
  });
  return isComplete || done == total;
}

/// The question that stands for the night of a shower's predicted peak.
MeteorQuestion atPeakOfYear(MeteorQuestion question, std::int64_t id, std::int64_t year) {
  const MeteorShowers showers = showersOfYear(question, year);
  const auto* period = std::as_const(*showers.showerWithId(id)).activityPeriodForYear(year);
  if (period == nullptr) return question;
  const Calendar calendar(question.nightZone);
  // Before noon it is the night that began the evening before.
  const Date peak = dateOfMjd(period->peakMjd - 0.5);
  question.moment = dateWithNoonDateTime(peak, calendar);
  question.isNight = true;
  return question;
}

}  // namespace

ActiveShowersReport answer(const ActiveShowersQuestion& asked) {
  const MeteorQuestion& question = asked.where;
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

ShowerReport answer(const ShowerQuestion& asked) {
  const std::int64_t id = idOfShower(asked.name);
  const MeteorQuestion question =
      asked.year ? atPeakOfYear(asked.where, id, *asked.year) : asked.where;
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
  report.days = manager.daysInfo();
  return report;
}

ShowerCalendarReport answer(const ShowerCalendarQuestion& question, const GoOn& goOn) {
  const auto& [where, year] = question;
  MeteorShowers showers = showersOfYear(where, year);
  ShowerCalendarReport report{.question = where, .year = year};
  report.isComplete = computePeaks(showers, year, Calendar(where.nightZone), goOn);
  for (const int showerClass : {kMajorShower, kMinorShower, kVariableShower, kWeakShower}) {
    const auto first = static_cast<std::ptrdiff_t>(report.showers.size());
    for (const auto& shower : showers.showersOfClass(showerClass)) {
      const auto* period = std::as_const(*shower).activityPeriodForYear(year);
      if (period == nullptr) continue;
      report.showers.push_back(
          {.shower = *shower,
           .period = *period,
           .isPeakKnown = showers.location() && (report.isComplete || period->hasRealPeak())});
    }
    std::stable_sort(report.showers.begin() + first, report.showers.end(),
                     [](const ListedShower& lhs, const ListedShower& rhs) {
                       return lhs.period.bestKnownPeakMjd() < rhs.period.bestKnownPeakMjd();
                     });
  }
  return report;
}

}  // namespace zenivo
