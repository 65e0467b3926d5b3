// What a search has found so far: everything, what of it is seen, and its order.

#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "find/DirectionSearch.h"
#include "find/FindResult.h"

namespace zenivo {

enum class FindSearchKind { azimuth, azimuthElevation };

/// Columns that can be tapped to sort by.  `azimuthOrHeight` is the azimuth in a
/// search for azimuth and elevation, and the apparent height in one for azimuth.
enum class FindColumn { date = 101, azimuthOrHeight = 103, elevation = 104, phase = 105 };

/// Whether a result stands above the threshold: the Sun from -1 degree on, the Moon
/// from 0 on.
bool isPositive(const ZVFindResultBodyAtAzimuth& result, FindBody body);

class FindResults {
 public:
  using Rows = std::vector<ZVFindResultBodyAtAzimuth>;

  FindResults(FindSearchKind kind, FindBody body) : kind_(kind), body_(body) {}

  void add(const ZVFindResultBodyAtAzimuth& result);

  const Rows& all() const { return all_; }
  const Rows& positive() const { return positive_; }

  /// What a list shows: in a search for an azimuth the positive ones, and when it has
  /// ended without any, all.
  const Rows& rows(bool isSearching) const;

  /// What there is to be said at the end of a search that found nothing, or nothing above
  /// the threshold: a key of the table "Ephemeris", nullopt when there is nothing.
  std::optional<std::string_view> noDataMessageForBody(FindBody body) const;

  /// Sorts by a column; equal results follow their dates.
  void sortAll(FindColumn column, bool ascending);
  /// Sorts what a list shows after its end.
  void sortRows(FindColumn column, bool ascending);

 private:
  void sort(Rows& rows, FindColumn column, bool ascending) const;

  FindSearchKind kind_;
  FindBody body_;
  Rows all_;
  Rows positive_;
};

}  // namespace zenivo
