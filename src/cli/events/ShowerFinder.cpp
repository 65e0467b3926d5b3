#include "cli/events/ShowerFinder.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "cli/input/InputError.h"
#include "cli/input/Suggestions.h"
#include "cli/input/TextFolding.h"

namespace zenivo::cli {
namespace {

bool isCalled(const MeteorShower& shower, TextFolder& folder, std::u32string_view folded) {
  for (const std::string& name : {shower.name, shower.translatedName(), shower.iauCode,
                                  shower.imoCode, std::to_string(shower.meteorId)}) {
    if (folder.foldsTo(name, folded)) return true;
  }
  return false;
}

/// The names nearest to what was typed: those that have it in them first.
std::vector<std::string> similarNames(const MeteorShowers& catalogue, TextFolder& folder,
                                      std::u32string_view folded) {
  constexpr std::size_t kListed = 4;
  constexpr std::size_t kLeastPiece = 3;
  constexpr int kMostEdits = 2;
  std::multimap<int, std::string> byEdits;
  for (const auto& shower : catalogue.showers()) {
    const std::u32string name = folder.fold(shower->name);
    const bool hasIt = folded.size() >= kLeastPiece && name.find(folded) != std::u32string::npos;
    const int edits = hasIt ? 0 : editDistance(folded, name, kMostEdits);
    const bool isSimilar = edits <= kMostEdits && folded.size() > 2 * kMostEdits;
    if (hasIt || isSimilar) byEdits.emplace(edits, shower->name);
  }
  std::vector<std::string> names;
  for (const auto& [edits, name] : byEdits) {
    if (names.size() < kListed) names.push_back(name);
  }
  return names;
}

}  // namespace

std::shared_ptr<MeteorShower> findShower(const MeteorShowers& catalogue, std::string_view text) {
  TextFolder folder;
  const std::u32string folded = folder.fold(text);
  if (!folded.empty()) {
    for (const auto& shower : catalogue.showers()) {
      if (isCalled(*shower, folder, folded)) return shower;
    }
  }
  std::string message = fmt::format("no meteor shower named {} is known", inQuotes(text));
  if (!folded.empty()) message += didYouMean(similarNames(catalogue, folder, folded));
  throw InputError(message);
}

}  // namespace zenivo::cli
