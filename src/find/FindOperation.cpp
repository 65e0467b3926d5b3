#include "find/FindOperation.h"

#include <utility>

#include "foundation/MainQueue.h"
#include "time/DateEphemeris.h"

namespace zenivo {

FindOperation::FindOperation(FindBody theBody, ZVObserver theObserver, Date fromDate, Date toDate)
    : body(theBody), observer(std::move(theObserver)), startDate(fromDate), endDate(toDate) {}

void FindOperation::setDelegate(const std::shared_ptr<FindOperationDelegate>& delegate) {
  const std::lock_guard lock(mutex_);
  delegate_ = delegate;
}

bool FindOperation::hasDelegate() const {
  const std::lock_guard lock(mutex_);
  return !delegate_.expired();
}

void FindOperation::tell(const std::function<void(FindOperationDelegate&)>& message) {
  mainQueue().performAndWait([&] {
    // Read on the main thread, where a list that goes away takes itself off.
    std::shared_ptr<FindOperationDelegate> delegate;
    {
      const std::lock_guard lock(mutex_);
      delegate = delegate_.lock();
    }
    if (delegate) message(*delegate);
  });
}

void FindOperation::didPerformStep(const Result& result) {
  tell([&](FindOperationDelegate& delegate) { delegate.didPerformeStep(*this, result); });
}

void FindOperation::main() {
  const bool isComplete = search([this](double) { return hasDelegate(); },
                                 [this](const Result& result) { didPerformStep(result); });
  if (!isComplete) return;
  tell([this](FindOperationDelegate& delegate) { delegate.didFinish(*this); });
}

bool FindOperation::search(const GoOn& goOn, const std::function<void(const Result&)>& take) const {
  const PtDateTime first = ptDateTimeForDate(startDate);
  const double start = getMjd(first);
  const double end = getMjd(ptDateTimeForDate(endDate));
  const Day day = daySearch(observer.getPtPosition(), getDeltaT(first));
  for (double d = start; d < end; d += 1.0) {
    if (!goOn((d - start) / (end - start))) return false;
    take(day(d));
  }
  return true;
}

BodyAtAzimuthFindOperation::BodyAtAzimuthFindOperation(FindBody theBody, ZVObserver theObserver,
                                                       float atAzimuth, Date fromDate, Date toDate)
    : FindOperation(theBody, std::move(theObserver), fromDate, toDate), azimuth(atAzimuth) {}

FindOperation::Day BodyAtAzimuthFindOperation::daySearch(const PtPosition& theObserver,
                                                         double deltaT) const {
  auto search = std::make_shared<AzimuthSearch>(body, theObserver, azimuth, deltaT);
  return [search](double day) { return search->onDay(day); };
}

FindOperation::Day BodyAtAzimuthElevationFindOperation::daySearch(const PtPosition& theObserver,
                                                                  double deltaT) const {
  auto search = std::make_shared<AzimuthElevationSearch>(body, theObserver, azimuth, azimuthError,
                                                         elevation, elevationError, deltaT);
  return [search](double day) { return search->onDay(day); };
}

}  // namespace zenivo
