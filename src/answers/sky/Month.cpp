#include "answers/sky/Month.h"

#include "answers/common/Session.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

bool isInMonth(Date date, const MonthQuestion& question, const Calendar& calendar) {
  return yearValue(date, calendar) == question.year && monthValue(date, calendar) == question.month;
}

}  // namespace

MonthReport answer(const MonthQuestion& question) {
  const Calendar calendar(question.scene.zone);
  DateComponents noon{.year = question.year, .month = question.month, .day = 1, .hour = 12};
  Session session(question.scene, calendar.dateFromComponents(noon));
  PlannerManager& planner = session.planner();
  MonthReport report;
  report.question = question;
  for (const PtMoonPhaseWithDate& phase : planner.moonMonthPhases()) {
    const double mjd = getMjd(phase.date);
    if (isInMonth(dateOfMjd(mjd), question, calendar)) report.phases.push_back({phase.phase, mjd});
  }
  for (; noon.day <= 31; ++noon.day) {
    const Date moment = calendar.dateFromComponents(noon);
    if (!isInMonth(moment, question, calendar)) break;
    if (dayValue(moment, calendar) != noon.day) continue;  // a day that was skipped
    planner.setCurrentDate(moment);
    report.days.push_back({noon, *planner.getCurrentMoonEvent()});
  }
  return report;
}

Json json(const MonthReport& report) {
  const auto& [scene, year, month] = report.question;
  Json phases = Json::array();
  for (const MonthReport::Phase& phase : report.phases) {
    phases.push_back({{"phase", phase.phase}, {"time", momentJson(phase.mjd, scene.zone)}});
  }
  Json days = Json::array();
  for (const MonthReport::Day& day : report.days) {
    days.push_back({{"date", isoDate(day.date)},
                    {"rise", momentJson(day.moon.mjdRise(), scene.zone)},
                    {"set", momentJson(day.moon.mjdSet(), scene.zone)},
                    {"illumination", day.moon.phaseIllumination},
                    {"phase", day.moon.phase},
                    {"supermoon", day.moon.isSupermoon}});
  }
  return {{"month", isoDate({.year = year, .month = month, .day = 1}).substr(0, 7)},
          {"zone", scene.zone.name()},
          {"place", placeJson(scene.location)},
          {"phases", std::move(phases)},
          {"days", std::move(days)}};
}

}  // namespace zenivo
