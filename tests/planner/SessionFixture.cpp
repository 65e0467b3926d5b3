#include "planner/SessionFixture.h"

#include <fmt/format.h>

#include <span>

#include "foundation/DateFormatter.h"

namespace zenivo::testing {
namespace {

class StateWriter {
 public:
  template <class... Values>
  void line(std::string_view name, const Values&... values) {
    text_ += name;
    (append(values), ...);
    text_ += '\n';
  }
  const std::string& text() const { return text_; }

 private:
  void append(double value) { text_ += fmt::format(" {:a}", value); }
  void append(std::int32_t value) { text_ += fmt::format(" {}", value); }
  void append(bool value) { text_ += value ? " yes" : " no"; }
  void append(Date value) { append(value.timeIntervalSinceReferenceDate()); }
  void append(const std::string& value) { text_ += " " + value; }
  void append(const PtPolar& p) {
    for (const double value : {p.azimuth_, p.elevation_, p.distance_}) append(value);
  }
  void append(const Vector3D& v) {
    for (const double value : {v.x(), v.y(), v.z()}) append(value);
  }
  void append(const TwilightEvent& t) {
    for (const double mjd : {t.mjdStart(), t.mjdEnd()}) append(mjd);
    for (const double t0 : {t.startTimeInterval(), t.endTimeInterval()}) append(t0);
  }

  std::string text_;
};

void writeEvent(StateWriter& out, const CelestialBodyEvent& event) {
  out.line("day", event.date);
  out.line("  rise", event.mjdRise(), event.riseTimeInterval(), event.riseAzimuth);
  out.line("  transit", event.mjdTransit(), event.transitTimeInterval());
  out.line("  set", event.mjdSet(), event.setTimeInterval(), event.setAzimuth);
}

void writePath(StateWriter& out, const std::optional<BodyPath>& path) {
  for (const BodyPathItem& item : path.value_or(BodyPath())) {
    out.line("    path", item.azimuth, item.elevation, item.mjd, item.label, item.isMainPoint,
             item.isRise, item.isSet, item.breakPath);
  }
}

void writeDays(StateWriter& out, const PlannerManager& session) {
  for (const SunEvent& event : session.sunEvents()) {
    writeEvent(out, event);
    out.line("  light", event.civilTwilight, event.nauticalTwilight, event.astronomicalTwilight,
             event.astronomicalTwilight2.value_or(TwilightEvent()), event.blueHour,
             event.goldenHour);
    writePath(out, event.positionsPerHour);
  }
  for (const MoonEvent& event : session.moonEvents()) {
    writeEvent(out, event);
    out.line("  phase", event.phase, event.mjdPhase, event.phaseIllumination, event.isSupermoon);
    writePath(out, event.positionsPerHour);
  }
}

void writeNight(StateWriter& out, const MilkyWayEvent& event) {
  writeEvent(out, event);
  out.line("  from", event.mjdVisibilityFrom, event.visibilityFromAzimuth,
           event.visibilityFromElevation);
  out.line("  to", event.mjdVisibilityTo, event.visibilityToAzimuth, event.visibilityToElevation);
}

void writePositions(StateWriter& out, const PlannerManager& session) {
  out.line("sun", session.getSunPosition(), session.getSunAngularDiameter(),
           session.sunDeclination(), session.getSunShadowLength());
  out.line("moon", session.getMoonPosition(), session.getMoonAngularDiameter(),
           session.getMoonShadowLength());
  const MoonPhase& phase = session.getMoonPhase();
  out.line("phase", phase.phase_, phase.phase_angle_, phase.waxing_, phase.parallactic_angle_,
           phase.zenith_angle_, phase.moon_phase_type_);
  const PtMilkyWayPosition& centre = session.getMilkyWayPosition();
  out.line("milkyWay", centre.azimuth_, centre.elevation_, centre.gc_, centre.east_,
           centre.gc_max_angle_, centre.gc_max_angle_azimuth_, centre.gc_angle_);
}

void writeEclipse(StateWriter& out, const PlannerManager& session) {
  if (const SunEclipseTimesResult* sun = session.getSunEclipseInfo()) {
    out.line("solar", sun->type, sun->magnitude, sun->mjdC1, sun->mjdC2, sun->mjdMax, sun->mjdC3,
             sun->mjdC4, sun->elevationMax);
  }
  if (const MoonEclipseTimesResult* moon = session.getMoonEclipseInfo()) {
    out.line("lunar", moon->type, moon->umbralMagnitude, moon->mjdMid, moon->elevationP1,
             moon->elevationMid, moon->elevationP4, moon->shadow.umbraRadius,
             moon->shadow.penumbraRadius);
  }
}

void writeMap(StateWriter& out, const PlannerManager& session) {
  const auto write = [&out](std::string_view name, std::span<const Coordinate> points) {
    for (const Coordinate& point : points) out.line(name, point.latitude, point.longitude);
  };
  for (const LinePositions* line :
       {&session.getSunLinePositions(), &session.getExpandedSunLinePositions(),
        &session.getSunSizeFirstSideLinePositions(), &session.getMoonLinePositions(),
        &session.getExpandedMoonLinePositions(), &session.getMoonSizeSecondSideLinePositions()}) {
    write("line", *line);
  }
  for (const SunEvent& event : session.sunEvents()) {
    write("sunRise", event.riseLinePositions);
    write("sunSet", event.setLinePositions);
  }
  for (const MoonEvent& event : session.moonEvents()) {
    write("moonRise", event.riseLinePositions);
    write("moonSet", event.setLinePositions);
  }
  if (session.getTerminatorLine() == nullptr) return;
  for (const TerminatorCircle& circle : *session.getTerminatorLine()) write("terminator", circle);
}

}  // namespace

std::string stateOf(const PlannerManager& session) {
  StateWriter out;
  out.line("date", session.currentDate(), session.currentTimeZone().name());
  writePositions(out, session);
  writeDays(out, session);
  for (const auto& event : session.getEventSorter().sortedEvents()) {
    out.line("event", event.interval, static_cast<std::int32_t>(event.type));
  }
  for (const PtMoonPhaseWithDate& phase : session.moonMonthPhases()) {
    out.line("monthPhase", phase.phase, getMjd(phase.date));
  }
  out.line("threshold", session.mwDateThreshold());
  writeNight(out, session.getCurrentMilkyWayEvent());
  writeEclipse(out, session);
  writeMap(out, session);
  out.line("shower", session.meteorShowerPeakMjd());
  writePath(out, session.meteorShowerPositionsPerHour());
  return out.text();
}

Session::Session(PlannerSides sides) {
  sides.sun = std::make_unique<CountingBody<ephemeris::PtSun>>(sunWork);
  sides.moon = std::make_unique<CountingBody<ephemeris::PtMoon>>(moonWork);
  manager = std::make_unique<PlannerManager>(defaults, std::move(sides));
  manager->setDelegate(delegate);
}

Session::Session(const ZVObserver& observer, const TimeZone& zone, Date date, PlannerSides sides)
    : Session(std::move(sides)) {
  manager->setObserver(observer);
  manager->setCurrentTimeZone(zone);
  manager->setCurrentDate(date);
  delegate->takeCalls();
  takeSunWork();
  takeMoonWork();
}

SessionTest::SessionTest() {
  TimeZone::setDefaultTimeZone(TimeZone());
  setCachedCalendarTimeZone(TimeZone());
  setSharedFormattersTimeZone(TimeZone());
}

SessionTest::~SessionTest() {
  TimeZone::setDefaultTimeZone(TimeZone::systemTimeZone());
}

}  // namespace zenivo::testing
