#include "commands/common/SceneOptions.h"

#include <fmt/format.h>

#include <cmath>

#include "answers/common/Home.h"
#include "answers/common/PlaceLookup.h"
#include "foundation/UserFolder.h"
#include "input/InputError.h"
#include "input/MomentParser.h"
#include "input/ZoneParser.h"

namespace zenivo::cli {
namespace {

std::string angleText(double degrees, char positive, char negative) {
  return fmt::format("{:.4f}° {}", std::fabs(degrees), degrees < 0 ? negative : positive);
}

std::string placeText(const ZVLocation& location) {
  std::string text = angleText(location.coordinate.latitude, 'N', 'S') + ", " +
                     angleText(location.coordinate.longitude, 'E', 'W');
  if (location.altitude != 0) text += fmt::format(", {:.0f} m", location.altitude);
  return text;
}

Date wholeSecond(Date date) {
  return Date::withTimeIntervalSince1970(std::floor(date.timeIntervalSince1970()));
}

}  // namespace

void SceneOptions::addTo(CLI::App& command, PlaceNeed need) {
  atOption_ =
      command
          .add_option("--at", at_, "The place: LAT,LON[,ALT_M] in degrees and metres, or its name")
          ->required(need == PlaceNeed::required)
          ->type_name("PLACE");
  command
      .add_option("--zone", zone_,
                  "IANA time zone (default: the place's, or at sea the nautical one)")
      ->type_name("ZONE");
  command.add_flag("--json", wantsJson_, "Print JSON");
}

Scene SceneOptions::resolve() const {
  if (at_.empty() || at_.starts_with("--")) throw InputError("--at needs a place");
  Home home(userFolder());
  return sceneFrom(at_, zone_, home.database());
}

TimeZone SceneOptions::zoneOfPlace(const Scene& scene) const {
  if (zone_.empty()) return scene.zone;
  Home home(userFolder());
  return sceneFrom(at_, {}, home.database()).zone;
}

TimeZone SceneOptions::resolveZone() const {
  return zone_.empty() ? parseZone("UTC") : parseZone(zone_);
}

void MomentOptions::addTo(CLI::App& command) {
  CLI::Option* time =
      command.add_option("--time", time_, "Date and time in ISO 8601 (default: now)")
          ->type_name("TIME");
  command
      .add_option("--date", date_,
                  bareDate_ == BareDate::noon ? "A date; its local noon is meant"
                                              : "A date; the start of its local day is meant")
      ->type_name("DATE")
      ->excludes(time);
}

Date MomentOptions::resolve(const TimeZone& zone) const {
  const Date now = Date::now();
  if (date_.empty()) return wholeSecond(time_.empty() ? now : parseMoment(time_, zone, now));
  DateComponents day = parseDay(date_, zone, now);
  if (bareDate_ == BareDate::noon) day.hour = 12;
  return Calendar(zone).dateFromComponents(day);
}

std::string heading(const Scene& scene, std::string_view when, std::string_view offset,
                    const Terminal& terminal) {
  std::string first = styled(scene.placeName.empty() ? placeText(scene.location) : scene.placeName,
                             Style::heading, terminal);
  if (!scene.placeName.empty()) first += "  " + placeText(scene.location);
  if (!scene.placeOrigin.empty()) first += fmt::format(" ({})", scene.placeOrigin);
  return fmt::format("{}\n{}  {}, {} ({})\n", first, styled(when, Style::heading, terminal),
                     scene.zone.name(), offset, scene.zoneOrigin);
}

}  // namespace zenivo::cli
