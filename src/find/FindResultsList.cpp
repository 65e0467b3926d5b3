#include "find/FindResultsList.h"

#include <algorithm>
#include <utility>

#include "foundation/MainQueue.h"
#include "time/Mjd.h"

namespace zenivo {
namespace {

/// Days in the range, both ends included.
int expectedSteps(const FindOperation& operation) {
  const double seconds = operation.endDate.timeIntervalSinceDate(operation.startDate) + 1.0;
  return static_cast<int>(seconds / kSecondsPerDay);
}

}  // namespace

/// What the operation holds weakly: the list lets go of it to hear nothing more.
class FindResultsList::Relay : public FindOperationDelegate {
 public:
  explicit Relay(FindResultsList& list) : list_(&list) {}

  void didPerformeStep(FindOperation& operation,
                       const std::optional<ZVFindResultBodyAtAzimuth>& result) override {
    relay([&] { list_->didPerformStep(operation, result); });
  }
  void didFinish(FindOperation&) override {
    relay([&] { list_->didFinish(); });
  }

  /// The operation waits for the end of a call.
  bool isRelaying() const { return isRelaying_; }
  bool hasList() const { return list_ != nullptr; }
  void loseList() { list_ = nullptr; }

 private:
  void relay(const std::function<void()>& call) {
    if (list_ == nullptr) return;
    isRelaying_ = true;
    call();
    isRelaying_ = false;
  }

  FindResultsList* list_;
  bool isRelaying_ = false;
};

FindResultsList::FindResultsList(FindSearchKind kind, FindBody body, MakeOperation findOperation)
    : kind_(kind),
      body_(body),
      findOperation_(std::move(findOperation)),
      results_(kind, body),
      relay_(std::make_shared<Relay>(*this)) {}

FindResultsList::~FindResultsList() {
  cancelPendingOperations();
  relay_->loseList();
  // The queue waits for the operation, and that for the end of the call in which the
  // list goes away.
  if (relay_->isRelaying()) mainQueue().async([queue = std::move(queue_)] {});
}

void FindResultsList::tell(const std::function<void(FindResultsListDelegate&)>& message) const {
  if (const auto delegate = delegate_.lock()) message(*delegate);
}

void FindResultsList::appear() {
  showAlert_ = true;
  cancelOperation_ = true;
  if (!started_) start();
}

void FindResultsList::disappear() {
  showAlert_ = false;
  if (cancelOperation_) cancelPendingOperations();
}

void FindResultsList::didReceiveMemoryWarning() {
  if (showAlert_) return;
  cancelPendingOperations();
  results_ = FindResults(kind_, body_);
  started_ = false;
}

void FindResultsList::start() {
  started_ = true;
  currentStep_ = 0;
  operation_ = findOperation_();
  operation_->setDelegate(relay_);
  queue_->addOperation([operation = operation_] { operation->main(); });
  setProgress(0.0);
}

void FindResultsList::cancelPendingOperations() {
  if (operation_ == nullptr) return;
  // Without its delegate a running search ends before its next day.
  operation_->setDelegate(nullptr);
  queue_->cancelAllOperations();
  operation_ = nullptr;
}

void FindResultsList::setProgress(double progress) {
  progress_ = progress;
  tell([progress](FindResultsListDelegate& delegate) { delegate.didUpdateProgress(progress); });
}

void FindResultsList::didPerformStep(const FindOperation& operation,
                                     const std::optional<ZVFindResultBodyAtAzimuth>& result) {
  if (result) results_.add(*result);
  const int count = expectedSteps(operation);
  if (count < 1) return;
  // Over a clock change the days of 24 hours are one more or less than the dates.
  currentStep_ = std::min(currentStep_ + 1, count);
  setProgress(static_cast<double>(currentStep_) / count);
}

void FindResultsList::didFinish() {
  operation_ = nullptr;
  const std::optional<std::string_view> message =
      showAlert_ ? noDataMessageForBody(body_) : std::nullopt;
  const auto relay = relay_;  // which knows whether there is still a list
  setProgress(1.0);
  if (relay->hasList()) tell([](FindResultsListDelegate& delegate) { delegate.didReloadData(); });
  if (!relay->hasList()) return;
  tell([&](FindResultsListDelegate& delegate) { delegate.didFinishSearch(message); });
}

bool FindResultsList::leavesAfterMessage() const {
  if (!noDataMessageForBody(body_)) return false;
  return kind_ == FindSearchKind::azimuthElevation || results_.all().empty();
}

void FindResultsList::sortByColumn(FindColumn column) {
  ascending_ = column != column_ || !ascending_;
  column_ = column;
  results_.sortRows(column_, ascending_);
  tell([](FindResultsListDelegate& delegate) { delegate.didReloadData(); });
}

void FindResultsList::selectRow(std::size_t row) {
  cancelOperation_ = false;
  const Date date = rows()[row].date;
  tell([date](FindResultsListDelegate& delegate) { delegate.didSelectDate(date); });
}

void FindResultsList::setResultsArray(const Results& results) {
  cancelPendingOperations();
  started_ = true;
  results_ = FindResults(kind_, body_);
  for (const auto& result : results) results_.add(result);
  tell([](FindResultsListDelegate& delegate) { delegate.didReloadData(); });
}

}  // namespace zenivo
