// The day of light as JSON.

#include "commands/sky/DayReport.h"

namespace zenivo::cli {
namespace {

class DayJsonWriter {
 public:
  explicit DayJsonWriter(const DayReport& day) : day_(day) {}

  Json json() const {
    return {{"date", isoDate(day_.clock.day())},
            {"zone", day_.scene.zone.name()},
            {"place", placeJson(day_.scene.location)},
            {"sun", sun()},
            {"moon", moon()},
            {"milkyWay", milkyWay()},
            {"events", events()},
            {"intervals", intervals()},
            {"moonlessHours", day_.moonlessHours}};
  }

 private:
  Json moment(double mjd) const { return momentJson(mjd, day_.scene.zone); }

  Json span(const TwilightEvent& twilight) const {
    return {{"start", moment(twilight.mjdStart())}, {"end", moment(twilight.mjdEnd())}};
  }

  /// Where there is no such moment there is no angle, either.
  static Json angleAt(double mjd, double degrees) {
    return drawEventAtMjd(mjd) ? Json(degrees) : Json(nullptr);
  }

  Json body(const CelestialBodyEvent& event) const {
    return {{"rise", moment(event.mjdRise())},
            {"transit", moment(event.mjdTransit())},
            {"set", moment(event.mjdSet())},
            {"riseAzimuth", angleAt(event.mjdRise(), event.riseAzimuth)},
            {"setAzimuth", angleAt(event.mjdSet(), event.setAzimuth)}};
  }

  Json sun() const {
    const SunEvent& event = day_.sun;
    Json json = body(event);
    json["civilTwilight"] = span(event.civilTwilight);
    json["nauticalTwilight"] = span(event.nauticalTwilight);
    json["astronomicalTwilight"] = span(event.astronomicalTwilight);
    json["astronomicalTwilight"]["secondEnd"] =
        moment(event.astronomicalTwilight2 ? event.astronomicalTwilight2->mjdEnd() : kAlwaysBelow);
    json["blueHour"] = span(event.blueHour);
    json["goldenHour"] = span(event.goldenHour);
    return json;
  }

  Json moon() const {
    const MoonEvent& event = day_.moon;
    Json json = body(event);
    json["phase"] = event.phase;
    json["phaseTime"] = moment(event.mjdPhase);
    json["illumination"] = event.phaseIllumination;
    json["supermoon"] = event.isSupermoon;
    return json;
  }

  Json milkyWay() const {
    const MilkyWayEvent& event = day_.milkyWay;
    const double from = event.mjdVisibilityFrom;
    const double to = event.mjdVisibilityTo;
    return {{"rise", moment(event.mjdRise())},
            {"set", moment(event.mjdSet())},
            {"riseAzimuth", angleAt(event.mjdRise(), event.riseAzimuth)},
            {"setAzimuth", angleAt(event.mjdSet(), event.setAzimuth)},
            {"visibleFrom", moment(from)},
            {"visibleTo", moment(to)},
            {"visibleFromAzimuth", angleAt(from, event.visibilityFromAzimuth)},
            {"visibleFromElevation", angleAt(from, event.visibilityFromElevation)},
            {"visibleToAzimuth", angleAt(to, event.visibilityToAzimuth)},
            {"visibleToElevation", angleAt(to, event.visibilityToElevation)}};
  }

  Json events() const {
    Json list = Json::array();
    for (const DayEvent& event : day_.events) {
      list.push_back({{"type", static_cast<int>(event.type)},
                      {"key", timeIntervalEventTypeKey(event.type)},
                      {"text", timeIntervalEventTypeToString(event.type)},
                      {"time", moment(event.mjd)}});
    }
    return list;
  }

  Json intervals() const {
    const auto spans = [&](LightType light) {
      Json list = Json::array();
      for (const TwilightEvent& twilight : day_.sun.spansForLightType(light)) {
        list.push_back(span(twilight));
      }
      return list;
    };
    return {{"civil", spans(LightType::civil)},
            {"nautical", spans(LightType::nautical)},
            {"astronomical", spans(LightType::astronomical)},
            {"blueHour", spans(LightType::blueHour)},
            {"goldenHour", spans(LightType::goldenHour)}};
  }

  const DayReport& day_;
};

}  // namespace

Json dayJson(const DayReport& day) {
  return DayJsonWriter(day).json();
}

}  // namespace zenivo::cli
