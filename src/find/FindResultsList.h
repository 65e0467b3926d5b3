// The list of what a search finds, as it grows: progress, rows, order, messages.

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "find/FindOperation.h"
#include "find/FindResults.h"
#include "foundation/OperationQueue.h"

namespace zenivo {

/// Hears of changes, on the main thread.  May destroy the list in any of these calls.
class FindResultsListDelegate {
 public:
  virtual ~FindResultsListDelegate() = default;

  virtual void didUpdateProgress(double /*progress*/) {}
  /// The search is over.  `message` is a key of the table "Ephemeris" to be shown.
  virtual void didFinishSearch(const std::optional<std::string_view>& /*message*/) {}
  virtual void didReloadData() {}
  virtual void didSelectDate(Date) {}
};

/// One search and its results.  Belongs to the main thread; the search itself runs
/// on a queue of the list's own, which never holds more than it.
class FindResultsList {
 public:
  using Results = FindResults::Rows;
  using MakeOperation = std::function<std::shared_ptr<FindOperation>()>;

  FindResultsList(FindSearchKind kind, FindBody body, MakeOperation findOperation);
  ~FindResultsList();

  void setDelegate(const std::shared_ptr<FindResultsListDelegate>& delegate) {
    delegate_ = delegate;
  }

  /// The list is shown: the first time, the search starts.
  void appear();
  /// The list is hidden.  That cancels its search, unless a row was selected; a
  /// search that ends while the list is hidden shows no message.
  void disappear();
  /// A hidden list cancels and forgets; it searches anew when it appears again.
  void didReceiveMemoryWarning();

  /// Ends the search at once; what was delivered stays.
  void cancelPendingOperations();
  bool isSearching() const { return operation_ != nullptr; }
  /// 0 to 1.
  double progress() const { return progress_; }

  /// Everything found, and of it what is positive.
  const Results& results() const { return results_.all(); }
  const Results& positiveResults() const { return results_.positive(); }
  /// What the list shows.
  const Results& rows() const { return results_.rows(isSearching()); }

  /// FindResults::noDataMessageForBody of the results.
  std::optional<std::string_view> noDataMessageForBody(FindBody body) const {
    return results_.noDataMessageForBody(body);
  }
  /// True when the list is left once that message is confirmed.
  bool leavesAfterMessage() const;

  /// Sorts by a column, ascending; the current column turns its direction.  Equal
  /// rows follow their dates.
  void sortByColumn(FindColumn column);

  /// Tells the delegate the date of a row.  REQUIRES: row < rows().size().
  void selectRow(std::size_t row);

  /// Shows other results in place of the search's.
  void setResultsArray(const Results& results);

 private:
  class Relay;

  void start();
  void didPerformStep(const FindOperation& operation,
                      const std::optional<ZVFindResultBodyAtAzimuth>& result);
  void didFinish();
  void setProgress(double progress);
  void tell(const std::function<void(FindResultsListDelegate&)>& message) const;

  const FindSearchKind kind_;
  const FindBody body_;
  const MakeOperation findOperation_;
  std::weak_ptr<FindResultsListDelegate> delegate_;

  bool started_ = false;
  bool showAlert_ = false;
  bool cancelOperation_ = true;
  FindResults results_;
  int currentStep_ = 0;
  double progress_ = 0;
  FindColumn column_ = FindColumn::date;
  bool ascending_ = true;

  std::shared_ptr<FindOperation> operation_;
  const std::shared_ptr<Relay> relay_;
  std::shared_ptr<OperationQueue> queue_ = std::make_shared<OperationQueue>(1);
};

}  // namespace zenivo
