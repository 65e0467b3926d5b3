// What the tests of the session share: sessions at a place, moment and zone, bodies
// that count their work, a delegate that keeps a record, and a session's whole state
// as text.

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "foundation/Calendar.h"
#include "foundation/TimeZone.h"
#include "foundation/UserDefaults.h"
#include "planner/PlannerManager.h"
#include "support/Times.h"
#include "time/DateEphemeris.h"

namespace zenivo::testing {

inline constexpr Coordinate kParis{48.8566, 2.3522};

struct Work {
  int searches = 0;
  int positions = 0;  ///< evaluations of the series
};

template <class Body>
class CountingBody : public Body {
 public:
  explicit CountingBody(std::shared_ptr<Work> work) : work_(std::move(work)) {}

  ephemeris::RiseSet riseSet(ephemeris::EventKind kind, double mjdAt0, double deltaT) override {
    ++work_->searches;
    return Body::riseSet(kind, mjdAt0, deltaT);
  }
  Vector3D equatorialPosition(bool highPrecision, const ephemeris::Frame& frame) override {
    ++work_->positions;
    return Body::equatorialPosition(highPrecision, frame);
  }

 private:
  std::shared_ptr<Work> work_;
};

class RecordingDelegate : public PlannerManagerDelegate {
 public:
  using Calls = std::vector<std::string>;

  void refreshRiseSetData() override { calls_.push_back("riseSet"); }
  void refreshCurrentPositionData() override { calls_.push_back("positions"); }
  void refreshMilkyWayVisibilityData() override { calls_.push_back("milkyWay"); }
  void refreshObstacleData() override { calls_.push_back("obstacle"); }
  void didJumpToTimeInterval(double interval) override {
    calls_.push_back("jump");
    jump_ = interval;
  }
  void refreshEclipseInfoData() override { calls_.push_back("eclipse"); }
  void resetFindViews() override { calls_.push_back("findViews"); }

  /// The calls since the last time asked.
  Calls takeCalls() { return std::exchange(calls_, {}); }
  double jump() const { return jump_; }

 private:
  Calls calls_;
  double jump_ = 0;
};

/// A session with everything that watches it.
struct Session {
  /// Of an empty store.
  explicit Session(PlannerSides sides = {});
  /// At a place and moment, computed.
  Session(const ZVObserver& observer, const TimeZone& zone, Date date, PlannerSides sides = {});

  PlannerManager* operator->() const { return manager.get(); }
  PlannerManager& operator*() const { return *manager; }

  /// What a body has done since the last time asked.
  Work takeSunWork() { return std::exchange(*sunWork, {}); }
  Work takeMoonWork() { return std::exchange(*moonWork, {}); }

  UserDefaults defaults;
  std::shared_ptr<Work> sunWork = std::make_shared<Work>();
  std::shared_ptr<Work> moonWork = std::make_shared<Work>();
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
  std::unique_ptr<PlannerManager> manager;
};

/// Everything that the session answers, one value a line, numbers to the last bit.
std::string stateOf(const PlannerManager& session);

/// Starts each test in GMT and gives the process its zone back afterwards.
class SessionTest : public ::testing::Test {
 protected:
  SessionTest();
  ~SessionTest() override;
};

}  // namespace zenivo::testing
