#include "answers/calculators/RowFinder.h"

#include <fmt/format.h>

#include <charconv>
#include <optional>

#include "input/InputError.h"
#include "input/Suggestions.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

constexpr std::size_t kMostSuggestions = 4;

/// Nullopt for what is no whole number.
std::optional<std::size_t> numberIn(std::string_view typed) {
  std::size_t number = 0;
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::size_t findRow(const std::vector<std::string>& names, std::string_view typed,
                    std::string_view table) {
  if (const auto number = numberIn(typed)) {
    if (*number >= 1 && *number <= names.size()) return *number - 1;
    throw InputError(fmt::format("the rows are 1 to {}; see {}", names.size(), table));
  }
  TextFolder folder;
  const std::u32string wanted = folder.fold(typed);
  std::vector<std::size_t> found;
  std::vector<std::string> suggestions;
  for (std::size_t i = 0; i < names.size() && !wanted.empty(); ++i) {
    const std::u32string name = folder.fold(names[i]);
    if (name == wanted) return i;
    if (name.find(wanted) == name.npos) continue;
    found.push_back(i);
    if (suggestions.size() < kMostSuggestions) suggestions.push_back(names[i]);
  }
  if (found.size() == 1) return found.front();
  throw InputError(found.empty() ? fmt::format("no row has {}; see {}", inQuotes(typed), table)
                                 : fmt::format("{} rows have {}{}", found.size(), inQuotes(typed),
                                               didYouMean(suggestions)));
}

}  // namespace zenivo
