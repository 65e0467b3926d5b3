#include "calculators/camera/CameraFilter.h"

#include <fmt/format.h>

#include <cmath>

#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

struct FilterRow {
  float stops;
  const char* text;
  const char* description;
};

constexpr FilterRow kMarketedFilters[] = {
    {0, "0", nullptr},     {1, "1", "ND2/0.3"},
    {2, "2", "ND4/0.6"},   {3, "3", "ND8/0.9"},
    {4, "4", "ND16/1.2"},  {5, "5", "ND32/1.5"},
    {6, "6", "ND64/1.8"},  {7, "7", "ND128/2.1"},
    {8, "8", "ND256/2.4"}, {8.666667F, "8 2/3", "ND400"},
    {9, "9", "ND512/2.7"}, {10, "10", "ND1024/3.0"},
    {10, "10", "ND110"},
};
constexpr int kFirstUnnamed = 11;
constexpr int kLastUnnamed = 25;

struct FractionGlyph {
  double stops;
  double tolerance;
  const char* text;
};

/// Thirds have no exact binary form, and 3/4 may come as the sum of others.
constexpr FractionGlyph kFractionGlyphs[] = {
    {0, 0, "0"},       {1.0 / 4, 0, "¼"},        {1.0 / 3, 0.000001, "⅓"},
    {1.0 / 2, 0, "½"}, {2.0 / 3, 0.000001, "⅔"}, {3.0 / 4, 0.000001, "¾"},
};

std::string stopsWord() {
  return calculatorText("exposure_filter_stops");
}

CameraFilter filterOf(const FilterRow& row) {
  const std::string word = row.stops == 1 ? calculatorText("exposure_filter_stop") : stopsWord();
  CameraFilter filter{row.stops, fmt::format("{} {}", row.text, word), std::nullopt};
  if (row.description != nullptr) filter.description = row.description;
  return filter;
}

}  // namespace

std::vector<CameraFilter> CameraFilter::standardFilters() {
  std::vector<CameraFilter> filters;
  for (const FilterRow& row : kMarketedFilters) filters.push_back(filterOf(row));
  for (int stops = kFirstUnnamed; stops <= kLastUnnamed; ++stops) {
    filters.push_back(
        filterOf({static_cast<float>(stops), std::to_string(stops).c_str(), nullptr}));
  }
  return filters;
}

std::vector<float> CameraFilter::standardFractionFilters() {
  return {0, 0.25F, 0.33333334F, 0.5F, 0.6666667F, 0.75F};
}

CameraFilter CameraFilter::findNearestCameraFilter(float value) {
  return findNearestCameraFilter(value, standardFilters());
}

CameraFilter CameraFilter::findNearestCameraFilter(float value,
                                                   std::span<const CameraFilter> inArray) {
  return nearestElement(inArray, value, &CameraFilter::fStopReduction);
}

int CameraFilter::indexForFractionFilterValue(float value, std::span<const float> inArray) {
  if (inArray.empty()) return -1;
  return static_cast<int>(&nearestElement(inArray, value) - inArray.data());
}

std::string CameraFilter::textForFractionalStops(double stops) {
  for (const FractionGlyph& glyph : kFractionGlyphs) {
    if (std::abs(stops - glyph.stops) <= glyph.tolerance) return glyph.text;
  }
  return numberWithAtMost(2, stops);
}

std::string CameraFilter::stopReductionTextWithFraction(float fraction) const {
  float whole = std::trunc(fStopReduction);
  float rest = fStopReduction + fraction - whole;
  if (rest >= 1) {
    rest -= 1;
    whole += 1;
  }
  const std::string restText = textForFractionalStops(rest);
  if (whole == 0) return fmt::format("{} {}", restText, stopsWord());
  if (rest == 0) return fmt::format("{} {}", whole, stopsWord());
  return fmt::format("{} {} {}", whole, restText, stopsWord());
}

}  // namespace zenivo
