// The answers about meteors as JSON.

#include "answers/events/Meteors.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

class MeteorJsonWriter {
 public:
  explicit MeteorJsonWriter(const MeteorQuestion& question) : question_(question) {}

  Json moment(double mjd) const { return momentJson(mjd, question_.zone); }
  Json moment(Date date) const { return moment(modifiedJulianDay(date)); }

  Json span(const MjdRateWindow& window) const {
    return {{"start", moment(window.isNight() ? window.start : kAlwaysBelow)},
            {"end", moment(window.isNight() ? window.end : kAlwaysBelow)}};
  }

  Json place() const {
    return question_.scene ? placeJson(question_.scene->location) : Json(nullptr);
  }

  /// What holds for a place alone.
  Json ofPlace(Json value) const { return question_.scene ? std::move(value) : Json(nullptr); }

  Json period(const MeteorShowerActivityPeriod& period, bool isPeakKnown) const {
    const auto known = [&](Json value) { return isPeakKnown ? std::move(value) : Json(nullptr); };
    const bool isSeen = period.hasRealPeak();
    return {{"start", moment(period.startDate)},
            {"end", moment(period.endDate)},
            {"peak", moment(period.peakMjd)},
            {"realPeak", known(moment(isSeen ? period.realPeakMjd : kAlwaysBelow))},
            {"rateAtPeak", known(period.rateAtPeak)},
            {"meanRate", known(period.meanMeteorRate)},
            {"moonIllumination", isSeen ? Json(period.moonPhaseAtPeak) : Json(nullptr)},
            {"energy", known(period.powerEnergy)}};
  }

  /// `hasMoment`: the radiant and the rate are of a moment.
  Json shower(const ListedShower& entry, bool hasMoment) const {
    const MeteorShower& shower = entry.shower;
    const bool isPlaced = hasMoment && question_.scene;
    const auto placed = [&](double value) { return isPlaced ? Json(value) : Json(nullptr); };
    return {
        {"id", shower.meteorId},
        {"name", shower.name},
        {"iau", shower.iauCode},
        {"class", shower.showerClass},
        {"rate", placed(entry.isActive ? shower.meteorsPerHour : 0.0)},
        {"radiant", {{"azimuth", placed(shower.azimuth)}, {"elevation", placed(shower.elevation)}}},
        {"period", period(entry.period, entry.isPeakKnown)}};
  }

  /// The members that the reports of a moment begin with.
  Json head(const MeteorNightReport& now) const {
    const auto& best = now.tonight.bestMeteorShower;
    return {{"time", moment(now.mjd)},
            {"zone", question_.zone.name()},
            {"place", place()},
            {"rate", ofPlace(now.rate)},
            {"limitingMagnitude", ofPlace(now.limitingMagnitude)},
            {"tonight", ofPlace({{"time", moment(now.tonight.mjd)},
                                 {"rate", now.tonight.rate},
                                 {"best", best ? Json(best->meteorId) : Json(nullptr)},
                                 {"night", span(now.night)}})}};
  }

  Json day(const MeteorDayInfoData& info) const {
    Json samples = Json::array();
    for (const MeteorGraphInfoAtMjd& sample : info.elevationsAndRates) {
      samples.push_back({{"mjd", sample.mjd},
                         {"rate", sample.rate},
                         {"radiantElevation", sample.meteorElevation},
                         {"moonElevation", sample.moonElevation}});
    }
    const Date noon = dateFromModifiedJulianDay(info.middle());
    return {{"date", isoDate(Calendar(question_.nightZone).componentsFromDate(noon))},
            {"sunrise", moment(info.mjdSunRise)},
            {"sunset", moment(info.mjdSunSet)},
            {"moonrise", moment(info.mjdMoonRise)},
            {"moonset", moment(info.mjdMoonSet)},
            {"samples", std::move(samples)}};
  }

 private:
  const MeteorQuestion& question_;
};

}  // namespace

Json json(const ActiveShowersReport& report) {
  const MeteorJsonWriter writer(report.question);
  Json text = writer.head(report.now);
  text["moonlessHours"] = writer.ofPlace(report.moonlessHours);
  text["showers"] = Json::array();
  for (const ListedShower& entry : report.showers) {
    text["showers"].push_back(writer.shower(entry, true));
  }
  return text;
}

Json json(const ShowerReport& report) {
  const MeteorJsonWriter writer(report.question);
  Json text = writer.head(report.now);
  text["showers"] = Json::array({writer.shower(report.shower, true)});
  text["nextPeriod"] = report.nextPeriod
                           ? writer.period(*report.nextPeriod, report.shower.isPeakKnown)
                           : Json(nullptr);
  text["peakRadiant"] = writer.ofPlace(
      {{"azimuth", report.peakRadiant.azimuth_}, {"elevation", report.peakRadiant.elevation_}});
  text["peakNight"] = writer.ofPlace(writer.span(report.peakNight));
  text["days"] = Json::array();
  if (!report.question.scene) return text;
  for (const MeteorDayInfoData& day : report.days) text["days"].push_back(writer.day(day));
  return text;
}

Json json(const ShowerCalendarReport& report) {
  const MeteorJsonWriter writer(report.question);
  Json showers = Json::array();
  for (const ListedShower& entry : report.showers) {
    showers.push_back(writer.shower(entry, false));
  }
  return {{"year", report.year},
          {"zone", report.question.zone.name()},
          {"place", writer.place()},
          {"showers", std::move(showers)},
          {"complete", report.isComplete}};
}

}  // namespace zenivo
