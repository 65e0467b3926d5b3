// zenivo meteors, against published showers, the sky and itself.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "answers/events/Meteors.h"
#include "cli/Zenivo.h"
#include "commands/events/MeteorText.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;

const std::string kTeide = " --at 28.27,-16.64,2390 --zone Atlantic/Canary";

Json showerOf(const Json& found, std::string_view iau) {
  for (const Json& shower : found["showers"]) {
    if (shower["iau"] == iau) return shower;
  }
  ADD_FAILURE() << iau;
  return {};
}

std::string timeOf(const Json& moment) {
  return moment["time"].is_string() ? moment["time"].get<std::string>() : "";
}

// International Meteor Organization, Meteor Shower Calendar 2026: Perseids on August 13, 02h to
// 04h UT under a new Moon (the 12th), the best of the year; radiant at 48, +58 degrees.
TEST(Meteors, TheNightOfThePerseids) {
  const Json found = answer("meteors --date 2026-08-12" + kTeide);
  const Json perseids = showerOf(found, "PER");
  EXPECT_EQ(perseids["id"], 7);
  EXPECT_EQ(perseids["class"], 1);
  EXPECT_EQ(found["tonight"]["best"], 7);
  EXPECT_THAT(timeOf(found["tonight"]["time"]), testing::StartsWith("2026-08-13T06:"));
  EXPECT_EQ(found["time"], found["tonight"]["time"]);
  EXPECT_EQ(found["limitingMagnitude"], 6.4);
  EXPECT_NEAR(found["rate"].get<double>(), found["tonight"]["rate"], 1e-4);

  const Json period = perseids["period"];
  EXPECT_EQ(timeOf(period["start"]), "2026-07-17T00:00:00+01:00");
  EXPECT_EQ(timeOf(period["end"]), "2026-08-24T23:59:59+01:00");
  EXPECT_THAT(timeOf(period["peak"]), testing::StartsWith("2026-08-13T03:"));
  EXPECT_NEAR(period["realPeak"]["mjd"].get<double>(), found["tonight"]["time"]["mjd"], 0.002);
  EXPECT_NEAR(perseids["rate"], period["rateAtPeak"], 0.1);
  EXPECT_LT(period["moonIllumination"], 0.01);
  EXPECT_EQ(period["energy"], 1);

  // The rates of the active ones make the whole.
  double sum = 0;
  for (const Json& shower : found["showers"]) sum += shower["rate"].get<double>();
  EXPECT_NEAR(sum, found["rate"], 1e-4);
  // A star at the radiant, 28.27 degrees north: the pole is 32 degrees from it.
  const double height = perseids["radiant"]["elevation"];
  EXPECT_NEAR(height, 55, 3);
  EXPECT_LT(height, 28.27 + 32);

  const std::string text = zenivo("meteors --date 2026-08-12" + kTeide).output;
  EXPECT_THAT(text, HasSubstr("The night of Wednesday 12 August 2026"));
  EXPECT_THAT(text, HasSubstr("Perseids above all"));
}

// Whatever the hour before sunrise, the night is the one that began the day before; the Perseids
// end with August 24.
TEST(Meteors, TheNightConcerned) {
  const auto perseidsAt = [](const char* time) {
    const Json found = answer(std::string("meteors --time ") + time + kTeide);
    const bool isThere = std::ranges::any_of(
        found["showers"], [](const Json& shower) { return shower["iau"] == "PER"; });
    return isThere ? timeOf(showerOf(found, "PER")["period"]["realPeak"]).substr(0, 10) : "";
  };
  EXPECT_EQ(perseidsAt("2026-08-24T23:00"), "2026-08-13");
  EXPECT_EQ(perseidsAt("2026-08-25T05:00"), "2026-08-13");
  EXPECT_EQ(perseidsAt("2026-08-25T12:00"), "");
  const Json morning = answer("meteors --time 2026-08-13T05:00" + kTeide);
  const Json noon = answer("meteors --time 2026-08-12T12:00" + kTeide);
  for (const char* key : {"time", "best", "night"}) {
    EXPECT_EQ(morning["tonight"][key], noon["tonight"][key]) << key;
  }
  EXPECT_LT(noon["rate"], 0.1);
  EXPECT_LT(noon["limitingMagnitude"], 0);
  EXPECT_EQ(zenivo("meteors --time 2026-08-12T12:00" + kTeide + " --json").output,
            zenivo("meteors --time 2026-08-12T11:00Z" + kTeide + " --json").output);
}

// IMO 2026: Geminids on December 14, 14h UT, ZHR 150; in Europe the nights before and after.
// From 33 degrees south the radiant, 33 degrees north, comes up to 23 degrees, before 2h.
TEST(Meteors, GeminidsNorthAndSouth) {
  const Json north = answer("meteors geminids --date 2026-12-01" + kTeide);
  const Json south = answer("meteors GEM --at Sydney --date 2026-12-01");
  const Json northPeriod = north["showers"][0]["period"];
  const Json southPeriod = south["showers"][0]["period"];
  EXPECT_THAT(timeOf(southPeriod["peak"]), testing::StartsWith("2026-12-15T00:4"));
  EXPECT_EQ(northPeriod["peak"]["mjd"], southPeriod["peak"]["mjd"]);
  EXPECT_THAT(timeOf(southPeriod["realPeak"]), testing::StartsWith("2026-12-15T0"));
  EXPECT_NEAR(south["peakRadiant"]["elevation"].get<double>(), 22, 2);
  EXPECT_NEAR(std::abs(south["peakRadiant"]["azimuth"].get<double>() - 180), 180, 20);
  EXPECT_GT(northPeriod["rateAtPeak"].get<double>(), 80);
  EXPECT_LT(southPeriod["rateAtPeak"].get<double>(), northPeriod["rateAtPeak"]);
  EXPECT_THAT(timeOf(north["nextPeriod"]["peak"]), testing::StartsWith("2027-12-14T"));

  const Json days = north["days"];
  ASSERT_EQ(days.size(), 3U);
  EXPECT_EQ(days[1]["date"], "2026-12-14");
  double best = 0;
  for (const Json& sample : days[1]["samples"]) best = std::max<double>(best, sample["rate"]);
  EXPECT_NEAR(best, northPeriod["rateAtPeak"], 0.2);
  const double peak = northPeriod["realPeak"]["mjd"];
  EXPECT_GT(peak, north["peakNight"]["start"]["mjd"]);
  EXPECT_LT(peak, north["peakNight"]["end"]["mjd"]);
}

TEST(Meteors, AShowerByAnyName) {
  for (const char* name : {"ETA", "eta", "'eta Aquariids'", "eta-aquariids", "η-Aquariids", "31"}) {
    EXPECT_EQ(answer(std::string("meteors ") + name)["showers"][0]["id"], 31) << name;
  }
}

// The radiant of the Ursids, 76 degrees north, never rises in Sydney; the pole's day has no night.
TEST(Meteors, WhereNothingIsSeen) {
  const auto expectNone = [](const Json& shower) {
    const Json period = shower["period"];
    EXPECT_EQ(period["realPeak"]["mjd"], -4) << shower;
    EXPECT_TRUE(period["realPeak"]["time"].is_null()) << shower;
    EXPECT_EQ(period["rateAtPeak"], 0) << shower;
    EXPECT_TRUE(period["moonIllumination"].is_null()) << shower;
  };
  const Json ursids = answer("meteors URS --at Sydney --date 2026-12-20");
  expectNone(ursids["showers"][0]);
  EXPECT_EQ(ursids["tonight"]["time"]["mjd"], -4);
  EXPECT_TRUE(ursids["tonight"]["best"].is_null());
  EXPECT_LT(ursids["peakRadiant"]["elevation"], 0);
  EXPECT_THAT(zenivo("meteors URS --at Sydney --date 2026-12-20").output,
              HasSubstr("nothing is seen of it"));

  const std::string pole = "meteors --at -90,0 --date 2026-12-12";
  const Json day = answer(pole);
  EXPECT_EQ(day["tonight"]["time"]["mjd"], -4);
  EXPECT_EQ(day["tonight"]["night"]["start"]["mjd"], -4);
  EXPECT_EQ(day["tonight"]["rate"], 0);
  for (const Json& shower : day["showers"]) expectNone(shower);
  EXPECT_THAT(zenivo(pole).output, HasSubstr("the Sun does not set"));
  // In the polar night a radiant does not set: at the pole the Geminids keep their height.
  const Json night = answer("meteors GEM --at 90,0 --date 2026-12-13");
  EXPECT_NEAR(night["peakRadiant"]["elevation"].get<double>(), 33, 1);
  EXPECT_GT(night["showers"][0]["period"]["rateAtPeak"], 50);
}

TEST(Meteors, WithoutAPlaceThePredictedPeaks) {
  for (const char* form : {"meteors --date 2026-08-12", "meteors PER --date 2026-08-12",
                           "meteors calendar --year 2026"}) {
    const Json found = answer(form);
    EXPECT_TRUE(found["place"].is_null()) << form;
    EXPECT_EQ(found["zone"], "UTC") << form;
    const Json perseids = showerOf(found, "PER");
    EXPECT_TRUE(perseids["radiant"]["azimuth"].is_null()) << form;
    EXPECT_THAT(timeOf(perseids["period"]["peak"]), testing::StartsWith("2026-08-13T02:")) << form;
    for (const char* key : {"realPeak", "rateAtPeak", "energy"}) {
      EXPECT_TRUE(perseids["period"][key].is_null()) << form << key;
    }
    EXPECT_THAT(zenivo(form).output, HasSubstr("13 Aug")) << form;
  }
}

// Every shower of the list peaks once in a year: QUA and COM, active over two New Years, too.
TEST(Meteors, Calendar) {
  const Json found = answer("meteors calendar --year 2027" + kTeide);
  EXPECT_EQ(found["year"], 2027);
  EXPECT_EQ(found["complete"], true);
  ASSERT_EQ(found["showers"].size(), 40U);
  std::pair<int, double> last;
  for (const Json& shower : found["showers"]) {
    const Json period = shower["period"];
    EXPECT_THAT(timeOf(period["peak"]), testing::StartsWith("2027-")) << shower;
    const bool isSeen = timeOf(period["realPeak"]) != "";
    const double peak = period[isSeen ? "realPeak" : "peak"]["mjd"];
    const std::pair<int, double> rank{shower["class"], peak};
    EXPECT_LT(last, rank) << shower;
    last = rank;
    EXPECT_EQ(isSeen, period["rateAtPeak"] > 0.0) << shower;
  }
  EXPECT_EQ(timeOf(showerOf(found, "QUA")["period"]["start"]), "2026-12-28T00:00:00+00:00");
  // One shower's own answer is the calendar's.
  const Json leonids = answer("meteors leonids --date 2027-03-01" + kTeide);
  EXPECT_EQ(leonids["showers"][0]["period"], showerOf(found, "LEO")["period"]);
}

// The dates of activity are those of today; the node drifts by a day in 60 to 70 years.
TEST(Meteors, ACalendarFarFromTodaySaysWhatItIsWorth) {
  const std::string warning = "peaks lie outside their dates of activity";
  EXPECT_NE(zenivo("meteors calendar --year 1583").output.find(warning), std::string::npos);
  EXPECT_EQ(zenivo("meteors calendar --year 2027").output.find(warning), std::string::npos);
}

TEST(Meteors, JsonKeys) {
  std::vector<std::string> shower{"showers", "showers.[]"};
  const auto add = [](std::vector<std::string>& keys, const std::string& prefix,
                      std::initializer_list<const char*> names) {
    for (const char* name : names) keys.push_back(prefix + name);
  };
  const auto addMoment = [&](std::vector<std::string>& keys, const std::string& name) {
    add(keys, name, {"", ".mjd", ".time"});
  };
  add(shower, "showers.[].",
      {"id", "name", "iau", "class", "rate", "radiant", "radiant.azimuth", "radiant.elevation",
       "period"});
  for (const char* moment : {"start", "end", "peak", "realPeak"}) {
    addMoment(shower, std::string("showers.[].period.") + moment);
  }
  add(shower, "showers.[].period.", {"rateAtPeak", "meanRate", "moonIllumination", "energy"});

  std::vector<std::string> head;
  addMoment(head, "time");
  add(head, "",
      {"zone", "place", "place.latitude", "place.longitude", "place.altitude", "rate",
       "limitingMagnitude", "tonight"});
  addMoment(head, "tonight.time");
  add(head, "tonight.", {"rate", "best", "night"});
  addMoment(head, "tonight.night.start");
  addMoment(head, "tonight.night.end");

  std::vector<std::string> tonight = head;
  tonight.push_back("moonlessHours");
  tonight.insert(tonight.end(), shower.begin(), shower.end());
  EXPECT_THAT(keysOf(answer("meteors --date 2026-08-12" + kTeide)), ElementsAreArray(tonight));

  std::vector<std::string> one = head;
  one.insert(one.end(), shower.begin(), shower.end());
  const std::vector<std::string> keys = keysOf(answer("meteors PER --date 2026-08-12" + kTeide));
  ASSERT_GT(keys.size(), one.size());
  EXPECT_THAT(std::vector(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(one.size())),
              ElementsAreArray(one));
  EXPECT_THAT(keys, testing::IsSupersetOf({"nextPeriod.realPeak.mjd", "peakRadiant.elevation",
                                           "peakNight.start.mjd", "days.[].moonset.mjd",
                                           "days.[].samples.[].radiantElevation"}));
}

// Stopped at the first shower: what has come by then is kept, and the rest is not known.
TEST(Meteors, ACalendarEndsWhenTold) {
  MeteorQuestion question;
  question.scene.emplace();
  question.scene->location = {Coordinate{28.27, -16.64}, 2390};
  question.moment = Date::now();
  const auto never = [](double) { return false; };
  const ShowerCalendarReport stopped =
      zenivo::answer(ShowerCalendarQuestion{question, 2026}, never);
  EXPECT_FALSE(stopped.isComplete);
  EXPECT_EQ(stopped.showers.size(), 40U);
  const Json json = zenivo::json(stopped);
  EXPECT_EQ(json["complete"], false);
  EXPECT_TRUE(showerOf(json, "COM")["period"]["realPeak"].is_null());
  EXPECT_THAT(showerCalendarText(stopped, Terminal()), HasSubstr("?"));

  const ShowerCalendarReport whole =
      zenivo::answer(ShowerCalendarQuestion{question, 2026}, [](double) { return true; });
  EXPECT_TRUE(whole.isComplete);
  EXPECT_THAT(showerCalendarText(whole, Terminal()), Not(HasSubstr("?")));
}

TEST(Meteors, WithoutItsListItSaysSo) {
  for (const char* form : {"", "perseids", "calendar"}) {
    const Outcome outcome =
        shell(std::string("ZENIVO_RESOURCES=/nonexistent zenivo meteors ") + form);
    EXPECT_EQ(outcome.exitCode, 1) << form;
    EXPECT_EQ(outcome.error, "zenivo: the list of meteor showers cannot be read\n") << form;
  }
}

}  // namespace
}  // namespace zenivo::cli
