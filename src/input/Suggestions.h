// What the user may have meant.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// Number of single-character insertions, deletions, replacements and swaps of
/// neighbours that turn one text into the other (optimal string alignment), or
/// `limit` + 1 as soon as it is sure to exceed `limit`.
int editDistance(std::u32string_view a, std::u32string_view b, int limit);

/// `; did you mean "x", "y" or "z"?`, or nothing for an empty list.
std::string didYouMean(const std::vector<std::string>& suggestions);

/// `a, b, c`, of more than eight `a, …, h and 3 more`.
std::string listOf(const std::vector<std::string>& entries);

}  // namespace zenivo
