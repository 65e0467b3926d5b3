#include "find/FindSearch.h"

#include <cmath>
#include <memory>

#include "engine/Angles.h"
#include "find/FindOperation.h"
#include "find/PassageSearch.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::unique_ptr<FindOperation> operationFor(const ZVObserver& observer,
                                            const FindRequest& request) {
  const auto make = [&]<class Operation>(std::type_identity<Operation>) {
    return std::make_unique<Operation>(request.body, observer, request.azimuth,
                                       request.period.start, request.period.end);
  };
  if (!request.elevation) return make(std::type_identity<BodyAtAzimuthFindOperation>());
  auto operation = make(std::type_identity<BodyAtAzimuthElevationFindOperation>());
  operation->azimuthError = request.elevation->azimuthError;
  operation->elevation = request.elevation->elevation;
  operation->elevationError = request.elevation->elevationError;
  return operation;
}

/// What the scan by the fast series found, held against the full series: the minute itself,
/// or the one before or after it.
class WindowCheck {
 public:
  WindowCheck(const ZVObserver& observer, const FindRequest& request)
      : bodies_(request.body, observer.getPtPosition()),
        request_(request),
        deltaT_(getDeltaT(ptDateTimeForDate(request.period.start))) {}

  std::optional<ZVFindResultBodyAtAzimuth> inside(const ZVFindResultBodyAtAzimuth& found) {
    if (!request_.elevation || isInside(found)) return found;
    const Date minute = dateOfPosition(found, request_);
    for (const double seconds : {-60.0, 60.0}) {
      const Date date = minute.dateByAddingTimeInterval(seconds);
      bodies_.evaluate(modifiedJulianDay(date), deltaT_);
      const auto beside = bodies_.result(date);
      if (isInside(beside)) return beside;
    }
    return std::nullopt;
  }

 private:
  bool isInside(const ZVFindResultBodyAtAzimuth& result) const {
    const ElevationWindow& window = *request_.elevation;
    const double azimuthMiss =
        std::abs(angleDifference(double{result.azimuth}, double{request_.azimuth}));
    const double elevationMiss = std::abs(double{result.elevation} - double{window.elevation});
    return (window.azimuthError == 0 || azimuthMiss <= double{window.azimuthError}) &&
           elevationMiss <= window.usedElevationError();
  }

  FindBodies bodies_;
  const FindRequest& request_;
  double deltaT_;
};

bool searchDays(const ZVObserver& observer, const FindRequest& request, const GoOn& goOn,
                FindResults& found) {
  const auto operation = operationFor(observer, request);
  WindowCheck check(observer, request);
  return operation->search(goOn, [&](const FindOperation::Result& result) {
    const auto inside = result ? check.inside(*result) : std::nullopt;
    if (inside) found.add(*inside);
  });
}

bool searchPassages(const ZVObserver& observer, const FindRequest& request, const GoOn& goOn,
                    FindResults& found) {
  PassageSearch search(request.body, observer.getPtPosition(), request.azimuth);
  const double start = modifiedJulianDay(request.period.start);
  const double end = modifiedJulianDay(request.period.end);
  for (double day = start; day < end; day += 1.0) {
    if (!goOn((day - start) / (end - start))) return false;
    for (const auto& result : search.onDay(day)) {
      // The last 24 hours reach beyond the period when clocks have gone forward.
      if (result.date <= request.period.end) found.add(result);
    }
  }
  return true;
}

}  // namespace

Date dateOfPosition(const ZVFindResultBodyAtAzimuth& result, const FindRequest& request) {
  if (request.allPassages) return result.date;
  const double minutes = std::floor(result.date.timeIntervalSince1970() / 60 + 0.5);
  return Date::withTimeIntervalSince1970(minutes * 60);
}

FoundDirections findDirection(const ZVObserver& observer, const FindRequest& request,
                              const GoOn& goOn) {
  FindResults found(request.kind(), request.body);
  const auto search = request.allPassages ? searchPassages : searchDays;
  const bool isComplete = search(observer, request, goOn, found);
  found.sortAll(request.column, request.ascending);
  found.sortRows(request.column, request.ascending);
  return {.results = found.all(),
          .rows = found.rows(false),
          .message = isComplete ? found.noDataMessageForBody(request.body) : std::nullopt,
          .isComplete = isComplete};
}

}  // namespace zenivo
