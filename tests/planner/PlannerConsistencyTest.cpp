// Whatever way a session came to where it is, it answers like one put there.

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "eclipses/Catalogue.h"
#include "foundation/DateFormatter.h"
#include "planner/MeteorShowerLayer.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

PlannerSides everySide() {
  PlannerSides sides;
  sides.geodesics = [] { return std::make_unique<GeodesicCurveMapManager>(); };
  sides.meteors = makeMeteorShowerLayers(nullptr);
  return sides;
}

void showLayers(PlannerManager& session, bool ofTheMoon) {
  session.mapSettings().twilightsLayer.isVisible = true;
  session.mapSettings().sunLayer.showAngularDiameter = true;
  session.createResources();
  session.setDrawGeodesicLines(true);
  session.setExpandLines(true);
  session.setEclipseLayerEnabled(true);
  session.setCurrentEclipse(eclipseNamed(ofTheMoon ? "LE2025Mar14T" : "SE2026Aug12T"));
  session.enableMeteorShower(7, "Perseids", 2026);
}

/// A random walk of a session.  Every step is checked against a session put at the
/// same place, moment and zone directly.
class Walk {
 public:
  Walk(std::uint64_t seed, const ZVObserver& start, const std::string& zone, Date date)
      : random_(seed), seed_(seed), session_(start, zoneNamed(zone), date, everySide()) {
    session_->mapSettings().sunLayer.mode = static_cast<int>(seed % 3);
    session_->mapSettings().moonLayer.mode = static_cast<int>(seed % 2);
    if (hasLayers()) showLayers(*session_, seed_ % 2 == 0);
    session_->plannerDidChangeLayersVisiblity();
  }

  /// False, with the difference reported, when the walk has gone astray.
  bool step() {
    const std::string what = takeStep();
    Session fresh(*session_->getObserver(), session_->currentTimeZone(), session_->currentDate(),
                  everySide());
    fresh->mapSettings() = session_->mapSettings();
    if (hasLayers()) showLayers(*fresh, seed_ % 2 == 0);
    fresh->plannerDidChangeLayersVisiblity();
    const std::string wanted = stateOf(*fresh);
    const std::string got = stateOf(*session_);
    EXPECT_EQ(got, wanted) << "after " << what << " to "
                           << iso8601String(session_->currentDate(), session_->currentTimeZone());
    expectLocalMidnights();
    return got == wanted;
  }

 private:
  /// Eclipse, shower, terminator and lines are shown.
  bool hasLayers() const { return seed_ % 8 < 2; }
  template <class Value>
  const Value& oneOf(const std::vector<Value>& values) {
    return values[random_() % values.size()];
  }
  double between(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random_);
  }

  /// Yesterday, today and tomorrow start at local midnights, whatever the clock does:
  /// tomorrow 27 hours after today, or after a skipped day the one behind it.
  void expectLocalMidnights() {
    const Calendar& calendar = session_->calendar();
    const Date today = dateWithStartDateTime(session_->currentDate(), calendar);
    const auto midnightAt = [&](double hours) {
      return dateWithStartDateTime(today.dateByAddingTimeInterval(hours * 3600), calendar);
    };
    const bool cameTwice = midnightAt(27) == today;
    const Date days[] = {midnightAt(-0.001), today, midnightAt(cameTwice ? 51 : 27)};
    for (std::size_t day = 0; day < 3; ++day) {
      EXPECT_EQ(session_->sunEvents()[day].date, days[day].timeIntervalSinceReferenceDate());
      EXPECT_EQ(session_->moonEvents()[day].date, session_->sunEvents()[day].date);
    }
  }

  std::string takeStep() {
    static constexpr std::string (Walk::*kSteps[])() = {&Walk::changePlace, &Walk::changeZone,
                                                        &Walk::jump,        &Walk::goToThreshold,
                                                        &Walk::setObserver, &Walk::changeMoment};
    return (this->*kSteps[std::min<std::size_t>(random_() % 12, 5)])();
  }

  std::string goToThreshold() {
    session_->setCurrentDate(session_->mwDateThreshold());
    return "the threshold";
  }

  std::string changeMoment() {
    static const std::vector<double> kHours{1.0 / 60,      1.0 / 3, 5,  12,   23,
                                            24 - 1.0 / 60, 24,      25, 71.5, 740};
    const double hours = oneOf(kHours) * (random_() % 2 == 0 ? 1 : -1);
    session_->setCurrentDate(session_->currentDate().dateByAddingTimeInterval(hours * 3600));
    return fmt::format("{} hours", hours);
  }

  std::string changePlace() {
    const Coordinate here = session_->getObserver()->coordinate;
    const std::vector<Coordinate> places{
        {std::clamp(here.latitude + between(-0.005, 0.005), -90.0, 90.0), here.longitude},
        {between(-90, 90), between(-180, 180)},
        {between(60, 90), between(-180, 180)},
        {90, 0},
        {-90, 180},
        {52, -180},
        here,
    };
    session_->setCurrentPosition(oneOf(places), false);
    return "another place";
  }

  std::string changeZone() {
    // Zones whose clocks change at midnight or by half an hour, that skipped a day, at
    // both ends of the date line, and with odd offsets.
    static const std::vector<std::string> kZones{
        "Africa/Cairo",       "America/Santiago", "Asia/Beirut",      "Pacific/Apia",
        "Pacific/Honolulu",   "Europe/Paris",     "America/St_Johns", "Australia/Lord_Howe",
        "Pacific/Kiritimati", "Antarctica/Troll", "Asia/Kathmandu",   "Etc/GMT+12"};
    session_->setCurrentTimeZone(zoneNamed(oneOf(kZones)));
    return "another zone";
  }

  std::string jump() {
    static const std::vector<void (PlannerManager::*)()> kJumps{
        &PlannerManager::jumpToNextMoonPhase, &PlannerManager::jumpToPreviousMoonPhase,
        &PlannerManager::jumpToNextNewMoonAtTheEndOfAstronomicalTwilight,
        &PlannerManager::jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight};
    ((*session_).*oneOf(kJumps))();
    return "a jump";
  }

  /// As a saved plan arrives: with another altitude, perhaps somewhere else.
  std::string setObserver() {
    ZVObserver observer = *session_->getObserver();
    if (random_() % 2 == 0) observer.coordinate = {between(-75, 75), between(-180, 180)};
    observer.altitude = static_cast<float>(between(0, 4000));
    observer.altitudeAtHorizon = 0;
    observer.adjustForHeightAboveHorizon = random_() % 2 == 0;
    session_->setObserver(observer);
    if (random_() % 2 == 0) {
      session_->setCurrentPosition(observer.coordinate, false);
    } else {
      if (random_() % 2 == 0) session_->setCurrentTimeZone(session_->currentTimeZone());
      session_->setCurrentDate(session_->currentDate());
    }
    return "another observer";
  }

  std::mt19937_64 random_;
  std::uint64_t seed_;
  Session session_;
};

class PlannerConsistency : public SessionTest {};

TEST_F(PlannerConsistency, OfRandomWalks) {
  std::mt19937_64 random(19950630);
  for (std::uint64_t seed = 0; seed < 32; ++seed) {
    const double latitude = std::uniform_real_distribution<double>(-75, 75)(random);
    const double longitude = std::uniform_real_distribution<double>(-180, 180)(random);
    const double date = std::uniform_real_distribution<double>(-6.3e9, 6.3e9)(random);
    Walk walk(seed, ZVObserver(Coordinate{latitude, longitude}), "GMT",
              Date::withTimeIntervalSinceReferenceDate(std::round(date / 60) * 60));
    for (int i = 0; i < 25; ++i) {
      if (!walk.step()) return;
    }
  }
}

// Each in its zone, whatever zone the process was given last.
TEST_F(PlannerConsistency, OfTwoSessionsSideBySide) {
  std::mt19937_64 random(16);
  const Date date = dateIn("GMT", 2026, 3, 28, 12);
  for (std::uint64_t seed = 200; seed < 206; ++seed) {
    Walk walks[] = {{seed, ZVObserver(kParis), "Europe/Paris", date},
                    {seed + 50, ZVObserver(Coordinate{35.7, 139.7}), "Asia/Tokyo", date}};
    for (int i = 0; i < 25; ++i) {
      if (!walks[random() % 2].step()) return;
    }
  }
}

TEST_F(PlannerConsistency, AroundOddDays) {
  struct Start {
    const char* zone;
    std::int64_t year;
    int month, day;
  };
  constexpr Start kStarts[] = {
      {"Pacific/Apia", 2011, 12, 29},       // the 30th was skipped
      {"Europe/Paris", 2026, 3, 28},        // the 29th has 23 hours
      {"Europe/Paris", 2026, 10, 24},       // the 25th has 25 hours
      {"Africa/Cairo", 2026, 4, 23},        // the 24th starts at 01:00
      {"Africa/Cairo", 2026, 10, 29},       // has two hours before midnight
      {"America/Santiago", 2026, 9, 5},     // the 6th starts at 01:00
      {"Asia/Beirut", 2026, 3, 28},         // the 29th starts at 01:00
      {"America/Havana", 2026, 11, 1},      // has two hours after midnight
      {"Australia/Lord_Howe", 2026, 4, 5},  // half an hour longer
      {"Europe/Paris", 1911, 3, 10},        // from local mean time to Greenwich's
      {"Asia/Manila", 1844, 12, 30},        // the 31st was skipped
      {"America/Sitka", 1867, 10, 17},      // had two October 18ths
  };
  std::uint64_t seed = 100;
  for (const Start& start : kStarts) {
    Walk walk(++seed, ZVObserver(Coordinate{49, 12}), start.zone,
              dateIn(start.zone, start.year, start.month, start.day, 23, 30));
    for (int i = 0; i < 20; ++i) {
      if (!walk.step()) return;
    }
  }
}

}  // namespace
}  // namespace zenivo::testing
