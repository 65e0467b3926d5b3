#include "commands/events/MeteorText.h"

#include <fmt/format.h>

#include <algorithm>

#include <array>
#include <cmath>

#include "commands/common/Clock.h"
#include "commands/common/SceneOptions.h"
#include "commands/common/Table.h"
#include "commands/common/Words.h"
#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

std::string_view classWord(const MeteorShower& shower) {
  constexpr std::array<std::string_view, 4> kWords{"major", "minor", "variable", "weak"};
  const bool isKnown = shower.showerClass >= kMajorShower && shower.showerClass <= kWeakShower;
  return kWords.at(static_cast<std::size_t>(isKnown ? shower.showerClass : kWeakShower) - 1);
}

std::string rateText(double rate) {
  return MeteorShower::stringForMeteorRate(rate, NumberFormatter{.usesGroupingSeparator = true});
}

/// Writes moments and spans in one zone.
class Clock {
 public:
  explicit Clock(const TimeZone& zone) : zone_(zone) {}

  std::string time(double mjd) const { return format("%H:%M", mjd); }
  std::string dayAndTime(double mjd) const { return format("%e %b %H:%M", mjd); }
  std::string fullTime(double mjd) const { return dayTitle(minute(mjd), zone_) + ", " + time(mjd); }
  std::string span(const MeteorShowerActivityPeriod& period) const {
    return period.toString(DateFormatter("%e %b", zone_));
  }
  std::string offset(double mjd) const { return offsetTitle(minute(mjd), zone_); }

 private:
  static Date minute(double mjd) { return dateFromModifiedJulianDay(mjd); }
  std::string format(const char* pattern, double mjd) const {
    if (!drawEventAtMjd(mjd)) return "-";
    return DateFormatter(pattern, zone_).stringFromDate(minute(mjd));
  }

  const TimeZone& zone_;
};

std::string headingOf(const MeteorQuestion& question, const std::string& when,
                      const std::string& offset, const Terminal& terminal) {
  if (question.scene) return heading(*question.scene, when, offset, terminal);
  return fmt::format("{}  {}, {}\n", styled(when, Style::heading, terminal), question.zone.name(),
                     offset);
}

std::string headingOf(const MeteorQuestion& question, double mjd, const Terminal& terminal) {
  const Clock clock(question.zone);
  const std::string when = question.isNight
                               ? "The night of " + dayTitle(question.moment, question.zone)
                               : clock.fullTime(mjd);
  return headingOf(question, when, clock.offset(mjd), terminal);
}

std::string moonText(double illumination, double elevation) {
  return fmt::format("Moon {} lit, {} {} the horizon", percent(illumination),
                     degrees(std::abs(elevation)), elevation < 0 ? "below" : "above");
}

/// "Tonight …" and "Now …", of all showers or of one.
std::string nightText(const MeteorNightReport& now, const MeteorQuestion& question,
                      bool isOfOneShower) {
  const Clock clock(question.zone);
  std::string text = question.isNight ? "That night: " : "Tonight: ";
  if (!now.night.isNight()) {
    text += "the Sun does not set\n";
  } else {
    text += fmt::format("the Sun is down from {} to {}; ", clock.time(now.night.start),
                        clock.time(now.night.end));
    if (rateText(now.tonight.rate) == rateText(0)) {
      text += "no meteors\n";
    } else {
      text += fmt::format("at best {} meteors an hour, at {}", rateText(now.tonight.rate),
                          clock.time(now.tonight.mjd));
      if (!isOfOneShower) {
        text += fmt::format(", {} above all", now.tonight.bestMeteorShower->translatedName());
      }
      text += "\n";
    }
  }
  return text + fmt::format("{}: {} meteors an hour, stars to magnitude {:.1f}; {}\n",
                            question.isNight ? "At " + clock.time(now.mjd) : "Now",
                            rateText(now.rate), now.limitingMagnitude,
                            moonText(now.moonIllumination, now.moonElevation));
}

/// What the place sees of a peak: when, how many an hour, and the Moon.
std::vector<std::string> peakCells(const ListedShower& entry, const Clock& clock) {
  const MeteorShowerActivityPeriod& period = entry.period;
  if (!entry.isPeakKnown) return {"?"};
  if (!period.hasRealPeak()) return {"not seen"};
  return {clock.dayAndTime(period.realPeakMjd), rateText(period.rateAtPeak),
          percent(period.moonPhaseAtPeak), percent(period.powerEnergy)};
}

std::vector<Column> peakColumns() {
  return {
      {"best here"}, {"rate", Align::right}, {"Moon", Align::right}, {"strength", Align::right}};
}

template <class Value>
void append(std::vector<Value>& values, std::vector<Value> more) {
  values.insert(values.end(), std::make_move_iterator(more.begin()),
                std::make_move_iterator(more.end()));
}

std::string activeTable(const ActiveShowersReport& report, const Terminal& terminal) {
  const bool isPlaced = report.question.scene.has_value();
  const Clock clock(report.question.zone);
  std::vector<Column> columns{{"shower"}, {"class"}};
  if (isPlaced) {
    append(columns, {{report.question.isNight ? "then" : "now", Align::right},
                     {"azimuth", Align::right},
                     {"elevation", Align::right}});
  }
  columns.push_back({"active"});
  append(columns, isPlaced ? peakColumns() : std::vector<Column>{{"predicted peak"}});
  Table table(columns);
  for (const ListedShower& entry : report.showers) {
    const MeteorShower& shower = entry.shower;
    std::vector<std::string> cells{shower.translatedName(), std::string(classWord(shower))};
    if (isPlaced) {
      append(cells, {entry.isActive ? rateText(shower.meteorsPerHour) : "-",
                     bearing(shower.azimuth), degrees(shower.elevation)});
    }
    cells.push_back(clock.span(entry.period));
    append(cells, isPlaced ? peakCells(entry, clock)
                           : std::vector<std::string>{clock.dayAndTime(entry.period.peakMjd)});
    table.addRow(std::move(cells), entry.isActive ? Style::plain : Style::faint);
  }
  return table.text(terminal);
}

std::string factsText(const MeteorShower& shower) {
  std::string text = fmt::format(
      "{} meteors an hour at most, {} km/s, population index {}; radiant at the peak "
      "{}, {} in {}\n",
      shower.maxZHR, shower.speed, shower.r, degrees(shower.rightAscension / kDegree),
      degrees(shower.declination / kDegree), shower.constellation);
  if (!shower.parentBody.empty()) text += fmt::format("Comes from {}\n", shower.parentBody);
  return text;
}

std::string peakText(const ShowerReport& report) {
  const Clock clock(report.question.zone);
  const MeteorShowerActivityPeriod& period = report.shower.period;
  std::string text = fmt::format("Active: {}\nPredicted peak: {}\n", clock.span(period),
                                 clock.fullTime(period.peakMjd));
  if (!report.shower.isPeakKnown) return text;
  if (!period.hasRealPeak()) return text + "Best here: nothing is seen of it in those nights\n";
  return text + fmt::format(
                    "Best here: {}: {} meteors an hour, {} in the mean of the night\n"
                    "Then: radiant at azimuth {}, elevation {}; {}\n"
                    "Strength of the night: {}\n",
                    clock.fullTime(period.realPeakMjd), rateText(period.rateAtPeak),
                    rateText(period.meanMeteorRate), bearing(report.peakRadiant.azimuth_),
                    degrees(report.peakRadiant.elevation_),
                    moonText(period.moonPhaseAtPeak, period.moonPhaseMoonElevation),
                    percent(period.powerEnergy));
}

std::string nextText(const ShowerReport& report) {
  if (!report.nextPeriod) return {};
  const Clock clock(report.question.zone);
  const MeteorShowerActivityPeriod& next = *report.nextPeriod;
  if (!next.hasRealPeak()) {
    return fmt::format("\nNext time: predicted for {}\n", clock.fullTime(next.peakMjd));
  }
  return fmt::format("\nNext time: {}: {} meteors an hour, Moon {} lit\n",
                     clock.fullTime(next.realPeakMjd), rateText(next.rateAtPeak),
                     percent(next.moonPhaseAtPeak));
}

/// The best of the night between the noons of two days.
MeteorGraphInfoAtMjd bestOfNight(const MeteorDayInfoData& evening,
                                 const MeteorDayInfoData& morning) {
  MeteorGraphInfoAtMjd best;
  for (const MeteorDayInfoData* day : {&evening, &morning}) {
    for (const MeteorGraphInfoAtMjd& sample : day->elevationsAndRates) {
      const bool isOfNight = sample.mjd >= evening.middle() && sample.mjd < morning.middle();
      if (isOfNight && sample.rate > best.rate) best = sample;
    }
  }
  return best;
}

/// The one of two moments that is in the night; the sentinel when neither is.
double inNight(double first, double second, const MeteorDayInfoData& evening,
               const MeteorDayInfoData& morning) {
  for (const double mjd : {first, second}) {
    if (drawEventAtMjd(mjd) && mjd >= evening.middle() && mjd < morning.middle()) return mjd;
  }
  return kNotThisDay;
}

/// The two nights around the peak.
std::string nightsTable(const ShowerReport& report, const Terminal& terminal) {
  const Clock clock(report.question.zone);
  const DateFormatter weekday("%a %e %b", report.question.nightZone);
  Table table({{"night of"},
               {"best"},
               {"rate", Align::right},
               {"radiant", Align::right},
               {"Moon", Align::right},
               {"sunset"},
               {"sunrise"},
               {"moonrise"},
               {"moonset"}});
  for (std::size_t i = 1; i < report.days.size(); ++i) {
    const MeteorDayInfoData& evening = report.days.at(i - 1);
    const MeteorDayInfoData& morning = report.days.at(i);
    const auto timeOf = [&](double MeteorDayInfoData::*event) {
      return clock.time(inNight(evening.*event, morning.*event, evening, morning));
    };
    const MeteorGraphInfoAtMjd best = bestOfNight(evening, morning);
    const bool isSeen = best.rate > 0;
    table.addRow({weekday.stringFromDate(dateFromModifiedJulianDay(evening.middle())),
                  isSeen ? clock.time(best.mjd) : "-", rateText(double{best.rate}),
                  isSeen ? degrees(double{best.meteorElevation}) : "-",
                  isSeen ? degrees(double{best.moonElevation}) : "-",
                  timeOf(&MeteorDayInfoData::mjdSunSet), timeOf(&MeteorDayInfoData::mjdSunRise),
                  timeOf(&MeteorDayInfoData::mjdMoonRise), timeOf(&MeteorDayInfoData::mjdMoonSet)});
  }
  return table.text(terminal);
}

/// Activity is listed by dates of today's calendar, the peak follows the stream's node.
std::string driftNote(const ShowerCalendarReport& report) {
  const auto drifted = std::ranges::count_if(report.showers, [](const ListedShower& entry) {
    return !entry.period.containsPredictedPeak();
  });
  if (drifted == 0) return "";
  return fmt::format(
      "\nSo far from today {} of the peaks lie outside their dates of activity: both are uncertain "
      "by days.\n",
      drifted);
}

}  // namespace

std::string activeShowersText(const ActiveShowersReport& report, const Terminal& terminal) {
  std::string text = headingOf(report.question, report.now.mjd, terminal) + "\n";
  if (report.question.scene) {
    text += nightText(report.now, report.question, false);
    text += fmt::format("Dark hours without the Moon: {:.1f}\n\n", report.moonlessHours);
  }
  if (report.showers.empty()) return text + "No shower is active, nor will be within 31 days.\n";
  return text + activeTable(report, terminal);
}

std::string showerText(const ShowerReport& report, const Terminal& terminal) {
  const MeteorShower& shower = report.shower.shower;
  std::string text = headingOf(report.question, report.now.mjd, terminal) +
                     fmt::format("\n{} ({}), {} shower\n",
                                 styled(shower.translatedName(), Style::heading, terminal),
                                 shower.iauCode, classWord(shower)) +
                     factsText(shower) + peakText(report);
  if (!report.question.scene) return text + nextText(report);
  if (report.shower.isActive) text += "\n" + nightText(report.now, report.question, true);
  return text + "\n" + nightsTable(report, terminal) + nextText(report);
}

std::string showerCalendarText(const ShowerCalendarReport& report, const Terminal& terminal) {
  const bool isPlaced = report.question.scene.has_value();
  const Clock clock(report.question.zone);
  std::vector<Column> columns{{"shower"}, {"IAU"}, {"class"}, {"active"}, {"predicted peak"}};
  if (isPlaced) append(columns, peakColumns());
  Table table(columns);
  for (const ListedShower& entry : report.showers) {
    std::vector<std::string> cells{entry.shower.translatedName(), entry.shower.iauCode,
                                   std::string(classWord(entry.shower)), clock.span(entry.period),
                                   clock.dayAndTime(entry.period.peakMjd)};
    if (isPlaced) append(cells, peakCells(entry, clock));
    const bool isSeen = !entry.isPeakKnown || entry.period.hasRealPeak();
    table.addRow(std::move(cells), isSeen ? Style::plain : Style::faint);
  }
  return headingOf(report.question, fmt::format("Meteor showers of {}", report.year), "local time",
                   terminal) +
         "\n" + table.text(terminal) + driftNote(report);
}

}  // namespace zenivo::cli
