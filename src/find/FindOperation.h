// A search as a background operation: one step a day, each handed over on the
// main thread.

#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "find/DirectionSearch.h"
#include "find/FindResult.h"
#include "foundation/Date.h"
#include "foundation/Progress.h"
#include "place/ZVObserver.h"

namespace zenivo {

class FindOperation;

/// Receives the steps, on the main thread.
class FindOperationDelegate {
 public:
  virtual ~FindOperationDelegate() = default;

  /// A day is done; nullopt when nothing was found on it.
  virtual void didPerformeStep(FindOperation&,
                               const std::optional<ZVFindResultBodyAtAzimuth>& /*result*/) {}
  /// The last day is done.  Not called for a search that was cancelled.
  virtual void didFinish(FindOperation&) {}
};

/// A search over a range of days.  Results come in the order of the days, and the
/// search waits until each has been taken; whoever takes the delegate away stops
/// it before its next day and hears nothing more.
class FindOperation {
 public:
  virtual ~FindOperation() = default;

  FindBody body = FindBody::sun;
  ZVObserver observer;
  Date startDate;  ///< included; the searched days begin at its time of day
  Date endDate;    ///< included

  /// The search holds its delegate weakly.  nullptr stops the search.
  void setDelegate(const std::shared_ptr<FindOperationDelegate>& delegate);

  /// Runs the search for the delegate on the calling thread, which is not the main
  /// thread unless the main thread may do all the work.
  void main();

  using Result = std::optional<ZVFindResultBodyAtAzimuth>;

  /// Runs the search on the calling thread and without a delegate: each day's result is
  /// taken there.  goOn is asked before each day.  False when that stopped it.
  bool search(const GoOn& goOn, const std::function<void(const Result&)>& take) const;

 protected:
  FindOperation(FindBody theBody, ZVObserver theObserver, Date fromDate, Date toDate);

  using Day = std::function<Result(double)>;

  /// The search of single days, for an observer and the deltaT of the whole run.
  virtual Day daySearch(const PtPosition& observer, double deltaT) const = 0;

 private:
  bool hasDelegate() const;
  void tell(const std::function<void(FindOperationDelegate&)>& message);
  void didPerformStep(const Result& result);

  mutable std::mutex mutex_;
  std::weak_ptr<FindOperationDelegate> delegate_;
};

/// When does the body stand at an azimuth?
class BodyAtAzimuthFindOperation : public FindOperation {
 public:
  BodyAtAzimuthFindOperation(FindBody theBody, ZVObserver theObserver, float atAzimuth,
                             Date fromDate, Date toDate);

  float azimuth;           ///< degrees from true north
  float azimuthError = 0;  ///< degrees; this search has a tolerance of its own

 protected:
  Day daySearch(const PtPosition& theObserver, double deltaT) const override;
};

/// When does the body stand at an azimuth and an elevation?
class BodyAtAzimuthElevationFindOperation : public BodyAtAzimuthFindOperation {
 public:
  using BodyAtAzimuthFindOperation::BodyAtAzimuthFindOperation;

  float elevation = 0;       ///< degrees, as seen
  float elevationError = 0;  ///< degrees; 0 means 0.1

 protected:
  Day daySearch(const PtPosition& theObserver, double deltaT) const override;
};

}  // namespace zenivo
