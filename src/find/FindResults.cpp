#include "find/FindResults.h"

#include <algorithm>

namespace zenivo {
namespace {

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

void FindResults::add(const ZVFindResultBodyAtAzimuth& result) {
  all_.push_back(result);
  if (isPositive(result, body_)) positive_.push_back(result);
}

const FindResults::Rows& FindResults::rows(bool isSearching) const {
  if (kind_ == FindSearchKind::azimuthElevation) return all_;
  return isSearching || !positive_.empty() ? positive_ : all_;
}

std::optional<std::string_view> FindResults::noDataMessageForBody(FindBody body) const {
  const bool sun = body == FindBody::sun;
  if (kind_ == FindSearchKind::azimuthElevation) {
    if (!all_.empty()) return std::nullopt;
    return sun ? "body_at_azimuth_elevation_no_result_sun"
               : "body_at_azimuth_elevation_no_result_moon";
  }
  if (all_.empty()) {
    return sun ? "body_at_azimuth_no_result_sun" : "body_at_azimuth_no_result_moon";
  }
  if (positive_.empty()) {
    return sun ? "body_at_azimuth_no_positive_result_sun"
               : "body_at_azimuth_no_positive_result_moon";
  }
  return std::nullopt;
}

void FindResults::sortAll(FindColumn column, bool ascending) {
  sort(all_, column, ascending);
}

void FindResults::sortRows(FindColumn column, bool ascending) {
  sort(&rows(false) == &positive_ ? positive_ : all_, column, ascending);
}

void FindResults::sort(Rows& rows, FindColumn column, bool ascending) const {
  std::ranges::stable_sort(rows, [&](const auto& a, const auto& b) {
    const double first = sortKey(a, column, kind_);
    const double second = sortKey(b, column, kind_);
    if (first != second) return ascending ? first < second : first > second;
    return a.date < b.date;
  });
}

}  // namespace zenivo
