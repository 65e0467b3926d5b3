#include "input/Suggestions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace zenivo {

int editDistance(std::u32string_view a, std::u32string_view b, int limit) {
  const int tooFar = limit + 1;
  if (std::abs(static_cast<int>(a.size()) - static_cast<int>(b.size())) > limit) return tooFar;
  std::array<std::vector<int>, 3> rows;  // the row before the last, the last, the one in work
  for (auto& row : rows) row.resize(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) rows[1][j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    rows[2][0] = static_cast<int>(i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const int replace = rows[1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      int best = std::min({rows[1][j] + 1, rows[2][j - 1] + 1, replace});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
        best = std::min(best, rows[0][j - 2] + 1);
      }
      rows[2][j] = best;
    }
    if (*std::min_element(rows[2].begin(), rows[2].end()) > limit) return tooFar;
    std::rotate(rows.begin(), rows.begin() + 1, rows.end());
  }
  return std::min(rows[1].back(), tooFar);
}

std::string didYouMean(const std::vector<std::string>& suggestions) {
  std::string text;
  for (std::size_t i = 0; i < suggestions.size(); ++i) {
    text += i == 0 ? "; did you mean " : i + 1 == suggestions.size() ? " or " : ", ";
    text += '"' + suggestions[i] + '"';
  }
  return text.empty() ? text : text + "?";
}

std::string listOf(const std::vector<std::string>& entries) {
  constexpr std::size_t kListed = 8;
  std::string text;
  for (std::size_t i = 0; i < std::min(kListed, entries.size()); ++i) {
    text += (i == 0 ? "" : ", ") + entries[i];
  }
  return entries.size() > kListed ? text + fmt::format(" and {} more", entries.size() - kListed)
                                  : text;
}

}  // namespace zenivo
