#include "commands/events/FindSearch.h"

#include <memory>
#include <utility>

#include "find/PassageSearch.h"
#include "foundation/MainQueue.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

std::shared_ptr<FindOperation> operationFor(const FindRequest& request) {
  const auto make = [&]<class Operation>(std::type_identity<Operation>) {
    return std::make_shared<Operation>(request.body, request.observer, request.azimuth,
                                       request.period.start, request.period.end);
  };
  if (!request.elevation) return make(std::type_identity<BodyAtAzimuthFindOperation>());
  auto operation = make(std::type_identity<BodyAtAzimuthElevationFindOperation>());
  operation->azimuthError = request.elevation->azimuthError;
  operation->elevation = request.elevation->elevation;
  operation->elevationError = request.elevation->elevationError;
  return operation;
}

/// Fills the list; false when interrupted.
bool searchDays(FindResultsList& list, const GoOn& goOn) {
  list.appear();
  mainQueue().runUntil([&] { return !list.isSearching() || !goOn(list.progress()); });
  const bool isComplete = !list.isSearching();
  list.cancelPendingOperations();
  return isComplete;
}

bool searchPassages(const FindRequest& request, FindResultsList& list, const GoOn& goOn) {
  PassageSearch search(request.body, request.observer.getPtPosition(), request.azimuth);
  FindResultsList::Results results;
  const double start = modifiedJulianDay(request.period.start);
  const double end = modifiedJulianDay(request.period.end);
  double day = start;
  for (; day < end && goOn((day - start) / (end - start)); day += 1) {
    for (const auto& result : search.onDay(day)) {
      // The last 24 hours reach beyond the period when clocks have gone forward.
      if (result.date <= request.period.end) results.push_back(result);
    }
  }
  list.setResultsArray(std::move(results));
  return day >= end;
}

}  // namespace

FindOutcome findDirection(const FindRequest& request, const GoOn& goOn) {
  FindResultsList list(request.kind(), request.body, [&] { return operationFor(request); });
  FindOutcome outcome;
  outcome.isComplete =
      request.allPassages ? searchPassages(request, list, goOn) : searchDays(list, goOn);
  outcome.results = list.results();
  outcome.rows = list.rows();
  for (auto* results : {&outcome.results, &outcome.rows}) {
    sortResults(*results, request.column, request.kind(), request.ascending);
  }
  if (outcome.isComplete) outcome.message = list.noDataMessageForBody(request.body);
  return outcome;
}

}  // namespace zenivo::cli
