// The answers of the meteor commands as JSON.

#include "commands/events/MeteorReport.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
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

  Json day(const ShowerDay& day) const {
    const MeteorDayInfoData& info = day.info;
    Json samples = Json::array();
    for (const MeteorGraphInfoAtMjd& sample : info.elevationsAndRates) {
      samples.push_back({{"mjd", sample.mjd},
                         {"rate", sample.rate},
                         {"radiantElevation", sample.meteorElevation},
                         {"moonElevation", sample.moonElevation}});
    }
    const Date noon = dateFromModifiedJulianDay(info.middle());
    return {{"date", isoDate(Calendar(question_.zone).componentsFromDate(noon))},
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

Json activeShowersJson(const ActiveShowersReport& report) {
  const MeteorJsonWriter writer(report.question);
  Json json = writer.head(report.now);
  json["moonlessHours"] = writer.ofPlace(report.moonlessHours);
  json["showers"] = Json::array();
  for (const ListedShower& entry : report.showers) {
    json["showers"].push_back(writer.shower(entry, true));
  }
  return json;
}

Json showerJson(const ShowerReport& report) {
  const MeteorJsonWriter writer(report.question);
  Json json = writer.head(report.now);
  json["showers"] = Json::array({writer.shower(report.shower, true)});
  json["nextPeriod"] = report.nextPeriod
                           ? writer.period(*report.nextPeriod, report.shower.isPeakKnown)
                           : Json(nullptr);
  json["peakRadiant"] = writer.ofPlace(
      {{"azimuth", report.peakRadiant.azimuth_}, {"elevation", report.peakRadiant.elevation_}});
  json["peakNight"] = writer.ofPlace(writer.span(report.peakNight));
  json["days"] = Json::array();
  if (!report.question.scene) return json;
  for (const ShowerDay& day : report.days) json["days"].push_back(writer.day(day));
  return json;
}

Json showerCalendarJson(const ShowerCalendarReport& report) {
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

}  // namespace zenivo::cli
