#include "find/FindSearch.h"

#include <memory>

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

bool searchDays(const ZVObserver& observer, const FindRequest& request, const GoOn& goOn,
                FindResults& found) {
  const auto operation = operationFor(observer, request);
  return operation->search(goOn, [&](const FindOperation::Result& result) {
    if (result) found.add(*result);
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
