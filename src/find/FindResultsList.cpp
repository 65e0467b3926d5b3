#include "find/FindResultsList.h"
#include "time/Mjd.h"

#include <algorithm>
#include <utility>

namespace zenivo {
namespace {

/// Days in the range, both ends included.
int expectedSteps(const FindOperation& operation) {
  const double seconds = operation.endDate.timeIntervalSinceDate(operation.startDate) + 1.0;
  return static_cast<int>(seconds / kSecondsPerDay);
}

/// The value that a column sorts by; the azimuth column of a search for azimuth
/// and elevation goes by the date, like its own rows do within the tolerance.
double sortKey(const ZVFindResultBodyAtAzimuth& result, FindColumn column, FindSearchKind kind) {
  const double date = result.date.timeIntervalSinceReferenceDate();
  switch (column) {
    case FindColumn::date:
      return date;
    case FindColumn::azimuthOrHeight:
      return kind == FindSearchKind::azimuth ? double{result.elevation} : date;
    case FindColumn::elevation:
      return double{result.elevation};
    case FindColumn::phase:
      return double{result.phase};
  }
  return date;
}

}  // namespace

bool isPositive(const ZVFindResultBodyAtAzimuth& result, FindBody body) {
  return result.elevation >= (body == FindBody::sun ? -1.0F : 0.0F);
}

void sortResults(std::vector<ZVFindResultBodyAtAzimuth>& results, FindColumn column,
                 FindSearchKind kind, bool ascending) {
  std::ranges::stable_sort(results, [&](const auto& a, const auto& b) {
    const double first = sortKey(a, column, kind);
    const double second = sortKey(b, column, kind);
    if (first != second) return ascending ? first < second : first > second;
    return a.date < b.date;
  });
}

/// What the operation holds weakly: the list lets go of it to hear nothing more.
class FindResultsList::Relay : public FindOperationDelegate {
 public:
  explicit Relay(FindResultsList& list) : list_(list) {}

  void didPerformeStep(FindOperation& operation,
                       const std::optional<ZVFindResultBodyAtAzimuth>& result) override {
    list_.didPerformStep(operation, result);
  }
  void didFinish(FindOperation&) override { list_.didFinish(); }

 private:
  FindResultsList& list_;
};

FindResultsList::FindResultsList(FindSearchKind kind, FindBody body, MakeOperation findOperation)
    : kind_(kind), body_(body), findOperation_(std::move(findOperation)) {}

FindResultsList::~FindResultsList() {
  cancelPendingOperations();
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
  results_.clear();
  positiveResults_.clear();
  started_ = false;
}

void FindResultsList::start() {
  started_ = true;
  currentStep_ = 0;
  setProgress(0.0);
  operation_ = findOperation_();
  relay_ = std::make_shared<Relay>(*this);
  operation_->setDelegate(relay_);
  queue_.addOperation([operation = operation_] { operation->main(); });
}

void FindResultsList::cancelPendingOperations() {
  if (operation_ == nullptr) return;
  // Without its delegate a running search ends before its next day.
  operation_->setDelegate(nullptr);
  queue_.cancelAllOperations();
  operation_ = nullptr;
}

void FindResultsList::setProgress(double progress) {
  progress_ = progress;
  tell([progress](FindResultsListDelegate& delegate) { delegate.didUpdateProgress(progress); });
}

void FindResultsList::didPerformStep(const FindOperation& operation,
                                     const std::optional<ZVFindResultBodyAtAzimuth>& result) {
  if (result) {
    results_.push_back(*result);
    if (isPositive(*result, body_)) positiveResults_.push_back(*result);
  }
  const int count = expectedSteps(operation);
  if (count < 1) return;
  // Over a clock change the days of 24 hours are one more or less than the dates.
  currentStep_ = std::min(currentStep_ + 1, count);
  setProgress(static_cast<double>(currentStep_) / count);
}

void FindResultsList::didFinish() {
  operation_ = nullptr;
  setProgress(1.0);
  const std::optional<std::string_view> message =
      showAlert_ ? noDataMessageForBody(body_) : std::nullopt;
  tell([&](FindResultsListDelegate& delegate) {
    delegate.didReloadData();
    delegate.didFinishSearch(message);
  });
}

const FindResultsList::Results& FindResultsList::rows() const {
  if (kind_ == FindSearchKind::azimuthElevation) return results_;
  return isSearching() || !positiveResults_.empty() ? positiveResults_ : results_;
}

std::optional<std::string_view> FindResultsList::noDataMessageForBody(FindBody body) const {
  const bool sun = body == FindBody::sun;
  if (kind_ == FindSearchKind::azimuthElevation) {
    if (!results_.empty()) return std::nullopt;
    return sun ? "body_at_azimuth_elevation_no_result_sun"
               : "body_at_azimuth_elevation_no_result_moon";
  }
  if (results_.empty()) {
    return sun ? "body_at_azimuth_no_result_sun" : "body_at_azimuth_no_result_moon";
  }
  if (positiveResults_.empty()) {
    return sun ? "body_at_azimuth_no_positive_result_sun"
               : "body_at_azimuth_no_positive_result_moon";
  }
  return std::nullopt;
}

bool FindResultsList::leavesAfterMessage() const {
  if (!noDataMessageForBody(body_)) return false;
  return kind_ == FindSearchKind::azimuthElevation ||
         (results_.empty() && positiveResults_.empty());
}

void FindResultsList::sortByColumn(FindColumn column) {
  ascending_ = column != column_ || !ascending_;
  column_ = column;
  const bool positive = kind_ == FindSearchKind::azimuth && !positiveResults_.empty();
  sortResults(positive ? positiveResults_ : results_, column_, kind_, ascending_);
  tell([](FindResultsListDelegate& delegate) { delegate.didReloadData(); });
}

void FindResultsList::selectRow(std::size_t row) {
  cancelOperation_ = false;
  const Date date = rows()[row].date;
  tell([date](FindResultsListDelegate& delegate) { delegate.didSelectDate(date); });
}

void FindResultsList::setResultsArray(Results results) {
  cancelPendingOperations();
  started_ = true;
  positiveResults_.clear();
  std::ranges::copy_if(results, std::back_inserter(positiveResults_),
                       [this](const auto& result) { return isPositive(result, body_); });
  results_ = std::move(results);
  tell([](FindResultsListDelegate& delegate) { delegate.didReloadData(); });
}

}  // namespace zenivo
